# What no list names is not built, and its tests are not run, and all stays green: so lists and
# folders must agree, or nothing gets configured.

# orvatool_expect_listed(LIST file... FOLDERS folder... [EXCEPT regex]): every .c and .cpp file below
# the folders must be in the list. Relative names are those of the current source folder.
function(orvatool_expect_listed)
    cmake_parse_arguments(PARSE_ARGV 0 EXPECT "" "EXCEPT" "LIST;FOLDERS")
    list(TRANSFORM EXPECT_FOLDERS REPLACE "(.+)" "\\1/*.c;\\1/*.cpp" OUTPUT_VARIABLE patterns)
    list(TRANSFORM EXPECT_LIST PREPEND "${CMAKE_CURRENT_SOURCE_DIR}/" REGEX "^[^/]")
    file(GLOB_RECURSE present CONFIGURE_DEPENDS ${patterns})
    foreach(file IN LISTS present)
        cmake_path(NORMAL_PATH file)
        if(NOT file IN_LIST EXPECT_LIST AND NOT (EXPECT_EXCEPT AND file MATCHES "${EXPECT_EXCEPT}"))
            message(FATAL_ERROR "No CMake list names this file, so nothing would build it:\n  ${file}")
        endif()
    endforeach()
endfunction()
