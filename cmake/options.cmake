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
    # The name of the format, then class and byte order, and at offset 18 the machine.
    set(elf "^7f454c46(....)........................(....)$")
    file(READ "${ORVATOOL_TROPTION}" head LIMIT 20 HEX)
    if(NOT head MATCHES "${elf}")
        message(FATAL_ERROR "ORVATOOL_TROPTION is \"${ORVATOOL_TROPTION}\", which is no library:"
                            " give the terminal's libtroption.so itself.")
    endif()
    string(REGEX REPLACE "${elf}" "\\1\\2" processor ${head})
    # What CMake compiled first of all; an archive where it could not link yet, and nothing where a
    # toolchain file forces the compiler.
    set(compiled "${CMAKE_PLATFORM_INFO_DIR}/CMakeDetermineCompilerABI_C.bin")
    set(head)
    if(EXISTS "${compiled}")
        file(READ "${compiled}" head LIMIT 20 HEX)
    endif()
    string(REGEX REPLACE "${elf}" "\\1\\2" own_processor "${head}")
    if(head MATCHES "^7f454c46" AND NOT processor STREQUAL own_processor)
        message(FATAL_ERROR "ORVATOOL_TROPTION is \"${ORVATOOL_TROPTION}\", which is of another processor than"
                            " that of ${CMAKE_C_COMPILER}: give the library of this one, or choose the"
                            " terminal's compiler, as by --toolchain cmake/arm-linux-gnueabi.cmake.")
    endif()
endif()

if(ORVATOOL_SANITIZE)
    include(CheckCXXCompilerFlag)
    set(CMAKE_REQUIRED_LINK_OPTIONS -fsanitize=${ORVATOOL_SANITIZE})
    unset(ORVATOOL_SANITIZERS_WORK CACHE)  # asked anew for each value
    check_cxx_compiler_flag("-fsanitize=${ORVATOOL_SANITIZE}" ORVATOOL_SANITIZERS_WORK)
    unset(CMAKE_REQUIRED_LINK_OPTIONS)
    if(NOT ORVATOOL_SANITIZERS_WORK)
        message(FATAL_ERROR "ORVATOOL_SANITIZE is \"${ORVATOOL_SANITIZE}\", with which ${CMAKE_CXX_COMPILER}"
                            " builds no program: give sanitizers that it has, as in address,undefined, or"
                            " nothing.")
    endif()
endif()

foreach(name COVERAGE FUZZ)
    if(ORVATOOL_${name} AND NOT CMAKE_CXX_COMPILER_ID STREQUAL Clang)
        message(FATAL_ERROR "ORVATOOL_${name} needs clang, and the compiler is ${CMAKE_CXX_COMPILER}: give"
                            " -DCMAKE_C_COMPILER=clang -DCMAKE_CXX_COMPILER=clang++ in an empty build folder.")
    endif()
endforeach()
