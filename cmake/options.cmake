# What a configuration can choose. A value that says nothing is refused with a sentence.

option(ORVATOOL_TESTS "Build the tests (GoogleTest sources from Debian's googletest)" OFF)
option(ORVATOOL_BENCH "Build the benchmarks (Debian's libbenchmark-dev)" OFF)
option(ORVATOOL_COVERAGE "Count what of the product the tests reach (clang)" OFF)
option(ORVATOOL_FUZZ "Build the fuzz targets (clang with libFuzzer)" OFF)
option(ORVATOOL_WERROR "Treat warnings as errors" OFF)
option(ORVATOOL_INSTALL "Install tool, library and manual" ${PROJECT_IS_TOP_LEVEL})
option(ORVATOOL_INSTALL_STANDINS "Install our stand-in for the option store too" OFF)
option(ORVATOOL_FORTIFY "Leave _FORTIFY_SOURCE as the flags set it; renames platform functions" OFF)
set(ORVATOOL_SANITIZE "" CACHE STRING "Sanitizers for everything that is built, as in address,undefined")
set(ORVATOOL_TROPTION "" CACHE FILEPATH "The terminal's own libtroption.so; empty: our stand-in")

foreach(name TESTS BENCH COVERAGE FUZZ WERROR INSTALL INSTALL_STANDINS FORTIFY)
    string(TOUPPER "${ORVATOOL_${name}}" value)
    if(NOT value MATCHES "^(ON|OFF|TRUE|FALSE|YES|NO|Y|N|1|0)$")
        message(FATAL_ERROR "ORVATOOL_${name} is \"${ORVATOOL_${name}}\": give ON or OFF.")
    endif()
endforeach()

# "None" is what packagers give who bring all flags themselves. A type of one's own has flags.
string(TOUPPER "${CMAKE_BUILD_TYPE}" build_type)
if(NOT build_type MATCHES "^(|NONE|DEBUG|RELEASE|RELWITHDEBINFO|MINSIZEREL)$"
   AND "${CMAKE_CXX_FLAGS_${build_type}}" STREQUAL "")
    message(FATAL_ERROR "CMAKE_BUILD_TYPE is \"${CMAKE_BUILD_TYPE}\": give MinSizeRel, as on the terminal,"
                        " RelWithDebInfo, Release, Debug or None.")
endif()

if(ORVATOOL_TROPTION)
    if(NOT EXISTS "${ORVATOOL_TROPTION}" OR IS_DIRECTORY "${ORVATOOL_TROPTION}")
        message(FATAL_ERROR "ORVATOOL_TROPTION is \"${ORVATOOL_TROPTION}\", and there is no such file:"
                            " give the path of the terminal's libtroption.so, or nothing for our stand-in.")
    endif()
    file(READ "${ORVATOOL_TROPTION}" head LIMIT 4 HEX)
    if(NOT head STREQUAL 7f454c46)
        message(FATAL_ERROR "ORVATOOL_TROPTION is \"${ORVATOOL_TROPTION}\", which is no library:"
                            " give the terminal's libtroption.so itself.")
    endif()
endif()
