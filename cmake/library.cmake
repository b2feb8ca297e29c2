# The library for programs of their own process: liborvautil.so and liborvautil.a, of the objects
# that the tool carries too. Other projects use the targets orvautil::orvautil and
# orvautil::orvautil_static, in this build and, by find_package, installed.

include(GNUInstallDirs)

# The headers under the names that they have when installed, as <orvautil/log.h>.
set(public_headers
    log/log.h
    util/fileutils.h
    util/timeutils.h
    util/timeutils/calendars.h
    util/timeutils/clock.h
    util/timeutils/ethernet.h
    util/timeutils/texts.h
    util/timeutils/values.h
    util/trstrutils.h)
foreach(header IN LISTS public_headers)
    string(REGEX REPLACE "^(log|util)/" "" name ${header})
    file(CONFIGURE OUTPUT ${PROJECT_BINARY_DIR}/include/orvautil/${name}
         CONTENT "#include \"${PROJECT_SOURCE_DIR}/${header}\"\n")
endforeach()

# Sanitizers bring symbols that only a program of the same sanitizer has.
if(ORVATOOL_SANITIZE OR ORVATOOL_COVERAGE)
    return()
endif()

# The names that the tool exports, and in a node of their own those that switch the log on.
set(version_script ${PROJECT_BINARY_DIR}/orvautil.map)
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${exports_list} ${log_list})
file(READ ${exports_list} names)
file(READ ${log_list} log_names)
string(REPLACE "\n{\n" "\nORVAUTIL_1.0 {\n  global:\n" names "${names}")
string(REPLACE "\n};\n" "\n  local: *;\n};\n" names "${names}")
string(REPLACE "\n{\n" "\nORVAUTIL_LOG_1.0 {\n  global:\n" log_names "${log_names}")
file(CONFIGURE OUTPUT ${version_script} CONTENT "${names}${log_names}" @ONLY)

# Calls among the library's own functions stay inside it, whatever names the program has. Data does
# not: a program may hold the one copy of _timezone.
add_library(orvautil SHARED $<TARGET_OBJECTS:orvautil_objects>)
target_link_libraries(orvautil PRIVATE ${platform_libraries})
target_link_options(
    orvautil
    PRIVATE
    -static-libgcc
    LINKER:-Bsymbolic-functions
    LINKER:--as-needed
    LINKER:--no-undefined
    LINKER:--version-script=${version_script}
    LINKER:-z,relro
    LINKER:-z,now
    LINKER:-z,noexecstack)
set_target_properties(
    orvautil PROPERTIES LINKER_LANGUAGE C LINK_DEPENDS ${version_script} VERSION ${PROJECT_VERSION}
                        SOVERSION ${PROJECT_VERSION_MAJOR})

# One object, so that names which are hidden in the library stay so in a program.
set(archive_object ${PROJECT_BINARY_DIR}/orvautil.o)
separate_arguments(compiler_flags UNIX_COMMAND "${CMAKE_C_FLAGS}")
add_custom_command(
    OUTPUT ${archive_object}
    COMMAND ${CMAKE_C_COMPILER} ${compiler_flags} -r -nostdlib -Wl,--force-group-allocation
            -o ${archive_object} $<TARGET_OBJECTS:orvautil_objects>
    COMMAND ${CMAKE_OBJCOPY} --localize-hidden ${archive_object}
    DEPENDS orvautil_objects $<TARGET_OBJECTS:orvautil_objects>
    COMMAND_EXPAND_LISTS VERBATIM)
add_library(orvautil_static STATIC ${archive_object})
target_link_libraries(orvautil_static INTERFACE ${platform_libraries})
set_source_files_properties(${archive_object} PROPERTIES EXTERNAL_OBJECT ON GENERATED ON)
set_target_properties(orvautil_static PROPERTIES LINKER_LANGUAGE C OUTPUT_NAME orvautil)

foreach(name orvautil orvautil_static)
    target_include_directories(${name} INTERFACE $<BUILD_INTERFACE:${PROJECT_BINARY_DIR}/include>
                                                 $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>)
    add_library(orvautil::${name} ALIAS ${name})
endforeach()
