# What ships: the executable, made of the library's objects and its own. They are linked as objects,
# not as an archive, because the terminal's other programs use much that the tool itself never calls.

# Older C libraries have these apart.
find_package(Threads REQUIRED)
set(platform_libraries m ${CMAKE_DL_LIBS} Threads::Threads)

set(util_sources
    log/levels.cpp
    log/print_log.cpp
    log/threads.cpp
    util/digits.cpp
    util/fileutils/create_path.cpp
    util/fileutils/env_path.cpp
    util/fileutils/file_copy.cpp
    util/fileutils/file_questions.cpp
    util/fileutils/folder_cursor.cpp
    util/fileutils/folders.cpp
    util/fileutils/processes.cpp
    util/timeutils/calendars/calendar_mode.cpp
    util/timeutils/calendars/calendar_text.cpp
    util/timeutils/calendars/gregorian.cpp
    util/timeutils/calendars/islamic.cpp
    util/timeutils/calendars/persian.cpp
    util/timeutils/clock/clock.cpp
    util/timeutils/ethernet/mac_address.cpp
    util/timeutils/texts/compile_date.cpp
    util/timeutils/texts/date_text.cpp
    util/timeutils/texts/hour_text.cpp
    util/timeutils/texts/record_text.cpp
    util/timeutils/texts/split_text.cpp
    util/timeutils/values/digits.cpp
    util/timeutils/values/mktime.cpp
    util/timeutils/values/old_time.cpp
    util/timeutils/values/seconds.cpp
    util/trstrutils/hex.cpp
    util/trstrutils/in_place.cpp
    util/trstrutils/key_value.cpp
    util/trstrutils/merge_sort.cpp
    util/trstrutils/numbers.cpp
    util/trstrutils/split.cpp)
set(device_sources
    splash/devices.cpp
    splash/gpio.cpp
    splash/logo.cpp
    splash/nand.cpp
    udisk/partitions.cpp
    udisk/udiskdetection.cpp)
set(library_sources ${util_sources} ${device_sources})
orvatool_expect_listed(LIST ${library_sources} FOLDERS log splash udisk util)

# A small build (MinSizeRel, as on the terminal) calls a subroutine for each division by a constant.
# What divides, copies or compares most gets -O2 there too; the rest would only grow.
set_source_files_properties(
    util/digits.cpp
    util/timeutils/calendars/gregorian.cpp
    util/timeutils/texts/date_text.cpp
    util/timeutils/values/mktime.cpp
    PROPERTIES COMPILE_OPTIONS $<$<CONFIG:MinSizeRel>:-O2>)

# -fPIC, also for what ends in an executable: -fPIE would export copies of libc's data.
function(orvatool_add_objects name)
    add_library(${name} OBJECT ${ARGN})
    target_link_libraries(${name} PRIVATE orvatool_product_flags)
    set_target_properties(${name} PROPERTIES POSITION_INDEPENDENT_CODE ON)
endfunction()
orvatool_add_objects(orvautil_objects ${util_sources})
orvatool_add_objects(orvatool_objects ${device_sources})
set(product_objects $<TARGET_OBJECTS:orvautil_objects> $<TARGET_OBJECTS:orvatool_objects>)

orvatool_expect_listed(LIST tool/main.cpp FOLDERS tool)
orvatool_add_objects(orvatool_main tool/main.cpp)
configure_file(cmake/version_note.c.in ${PROJECT_BINARY_DIR}/version_note.c @ONLY)

set(exports_list ${PROJECT_SOURCE_DIR}/tool/exports.list)
set(log_list ${PROJECT_SOURCE_DIR}/log/library.list)
add_executable(orvatool $<TARGET_OBJECTS:orvatool_main> ${product_objects}
                        ${PROJECT_BINARY_DIR}/version_note.c)
target_link_libraries(orvatool PRIVATE orvatool_product_flags orvatool_troption ${platform_libraries})
# The C driver links: no C++ runtime library comes along.
set_target_properties(orvatool PROPERTIES LINKER_LANGUAGE C LINK_DEPENDS ${exports_list})
target_link_options(
    orvatool
    PRIVATE
    -pie
    -static-libgcc
    LINKER:--as-needed
    LINKER:--dynamic-list=${exports_list}
    LINKER:-z,relro
    LINKER:-z,now
    LINKER:-z,noexecstack)

# The run path is for the build folder only. CMake's own way to take it off ends it in ':' until
# then, which is the current folder: a foreign libtroption.so there would be loaded.
set_target_properties(orvatool PROPERTIES INSTALL_RPATH "$ORIGIN/../lib" BUILD_WITH_INSTALL_RPATH ON)
