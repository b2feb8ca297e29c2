# What ships: the executable, made of two sets of objects. They are linked as objects, not as an
# archive, because the terminal's other programs use much that the tool itself never calls.

add_library(
    library_objects OBJECT
    log/levels.cpp
    log/print_log.cpp
    log/threads.cpp
    splash/devices.cpp
    splash/gpio.cpp
    splash/logo.cpp
    splash/nand.cpp
    udisk/partitions.cpp
    udisk/udiskdetection.cpp
    util/fileutils/create_path.cpp
    util/fileutils/env_path.cpp
    util/fileutils/file_copy.cpp
    util/fileutils/file_questions.cpp
    util/fileutils/folder_cursor.cpp
    util/fileutils/folders.cpp
    util/fileutils/processes.cpp
    util/timeutils/calendar_mode.cpp
    util/timeutils/clock.cpp
    util/timeutils/compile_date.cpp
    util/timeutils/date_text.cpp
    util/timeutils/digits.cpp
    util/timeutils/fields.cpp
    util/timeutils/gregorian.cpp
    util/timeutils/hour_text.cpp
    util/timeutils/islamic.cpp
    util/timeutils/mac_address.cpp
    util/timeutils/mac_text.cpp
    util/timeutils/mktime.cpp
    util/timeutils/old_time.cpp
    util/timeutils/persian.cpp
    util/timeutils/record_text.cpp
    util/timeutils/seconds.cpp
    util/timeutils/sleep.cpp
    util/timeutils/split_text.cpp
    util/timeutils/tick_count.cpp
    util/trstrutils/hex.cpp
    util/trstrutils/in_place.cpp
    util/trstrutils/key_value.cpp
    util/trstrutils/merge_sort.cpp
    util/trstrutils/numbers.cpp
    util/trstrutils/split.cpp)
target_link_libraries(library_objects PRIVATE product_flags)
# -fPIC, also for what ends in an executable: -fPIE would export copies of libc's data.
set_target_properties(library_objects PROPERTIES POSITION_INDEPENDENT_CODE ON)

add_library(tool_objects OBJECT tool/main.cpp)
target_link_libraries(tool_objects PRIVATE product_flags troption)
set_target_properties(tool_objects PROPERTIES POSITION_INDEPENDENT_CODE ON)

set(exports_list ${PROJECT_SOURCE_DIR}/tool/exports.list)
add_executable(orvatool $<TARGET_OBJECTS:tool_objects> $<TARGET_OBJECTS:library_objects>)
target_link_libraries(orvatool PRIVATE troption m)
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
install(TARGETS orvatool RUNTIME DESTINATION bin)
