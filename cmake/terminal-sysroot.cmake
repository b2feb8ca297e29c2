# Your compiler with the C library that the terminal has: a toolchain file to copy, explained in
# docs/old-terminals.md.
#
#   cmake -S . -B build -DCMAKE_BUILD_TYPE=MinSizeRel -DCMAKE_SYSROOT=/path/to/sysroot
#         -DCMAKE_TOOLCHAIN_FILE=cmake/terminal-sysroot.cmake
#
# Another compiler than Debian's: -DCMAKE_C_COMPILER=... -DCMAKE_CXX_COMPILER=...
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR arm)
if(NOT CMAKE_C_COMPILER)
    set(CMAKE_C_COMPILER arm-linux-gnueabi-gcc)
endif()
if(NOT CMAKE_CXX_COMPILER)
    set(CMAKE_CXX_COMPILER arm-linux-gnueabi-g++)
endif()
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
get_property(is_trial GLOBAL PROPERTY IN_TRY_COMPILE)
if(is_trial)
    return()  # CMake hands its trials the flags that are found below
endif()

function(refuse_sysroot reason)
    message(FATAL_ERROR "CMAKE_SYSROOT is \"${CMAKE_SYSROOT}\", ${reason}: give the whole path of the folder"
                        " with the usr/include and usr/lib that programs of the terminal are built with.")
endfunction()
if(NOT CMAKE_SYSROOT)
    refuse_sysroot("which names nothing")
elseif(NOT IS_ABSOLUTE "${CMAKE_SYSROOT}" OR NOT IS_DIRECTORY "${CMAKE_SYSROOT}")
    refuse_sysroot("which is no such folder")
endif()
execute_process(COMMAND ${CMAKE_CXX_COMPILER} -dumpversion OUTPUT_VARIABLE version RESULT_VARIABLE status
                OUTPUT_STRIP_TRAILING_WHITESPACE ERROR_QUIET)
if(NOT status EQUAL 0 OR version VERSION_LESS 10)
    message(FATAL_ERROR "CMAKE_CXX_COMPILER is \"${CMAKE_CXX_COMPILER}\", version \"${version}\": give g++ 10"
                        " or later for the terminal's processor.")
endif()
execute_process(COMMAND ${CMAKE_CXX_COMPILER} -dumpmachine OUTPUT_VARIABLE machine
                OUTPUT_STRIP_TRAILING_WHITESPACE)
file(GLOB musl_loader RELATIVE ${CMAKE_SYSROOT} ${CMAKE_SYSROOT}/lib/ld-musl-arm*.so.1)
if(musl_loader)
    string(REPLACE "-gnu" "-musl" machine "${machine}")
endif()

# Where a sysroot has a file: plainly, or below the machine's name as on Debian.
function(find_folder result above file)
    foreach(folder ${CMAKE_SYSROOT}/${above}/${machine} ${CMAKE_SYSROOT}/${above})
        if(EXISTS "${folder}/${file}")
            set(${result} ${folder} PARENT_SCOPE)
            return()
        endif()
    endforeach()
    refuse_sysroot("without ${above}/${file}")
endfunction()
find_folder(header_folder usr/include features.h)
find_folder(library_folder usr/lib libc.so)
find_folder(library_folder usr/lib Scrt1.o)
file(READ ${library_folder}/Scrt1.o processor OFFSET 18 LIMIT 2 HEX)
if(NOT processor STREQUAL 2800)
    refuse_sysroot("whose start-up code is not for little-endian ARM")
endif()

# Debian's cross compilers look for headers and start-up code in their own C library first, whatever
# sysroot they get. So they are told each folder: the compiler's own, and the sysroot's.
function(own_folders language result)
    execute_process(COMMAND ${CMAKE_CXX_COMPILER} -E -v -x ${language} /dev/null
                    ERROR_VARIABLE words OUTPUT_QUIET)
    string(REGEX REPLACE ".*search starts here:\n(.*)End of search.*" "\\1" words "${words}")
    string(REGEX MATCHALL "/[^\n]+" folders "${words}")
    list(FILTER folders INCLUDE REGEX "/c\\+\\+/|/gcc[^/]*/[^/]+/[^/]+/include(-fixed)?$")
    set(${result} ${folders} PARENT_SCOPE)
endfunction()
own_folders(c own_c)
own_folders(c++ own_cxx)
list(REMOVE_ITEM own_cxx ${own_c})
set(c_folders ${own_c} ${CMAKE_SYSROOT}/usr/include/${machine} ${CMAKE_SYSROOT}/usr/include)
set(flags "\"-B${library_folder}\" -nostdinc")
if(musl_loader)
    set(c_folders ${header_folder} ${own_c})  # it has all of C's headers, and wants its own
    # The C++ headers were made for glibc: they ask for its version, and name a type as it does.
    string(APPEND flags " \"-D__GLIBC_PREREQ(a,b)=0\" -D__locale_t=locale_t")
    set(CMAKE_EXE_LINKER_FLAGS_INIT -Wl,--dynamic-linker=/${musl_loader})
endif()
list(TRANSFORM c_folders REPLACE "(.+)" "-isystem \"\\1\"")
list(TRANSFORM own_cxx REPLACE "(.+)" "-isystem \"\\1\"")
list(JOIN c_folders " " c_folders)
list(JOIN own_cxx " " own_cxx)
set(CMAKE_C_FLAGS_INIT "${flags} ${c_folders}")
set(CMAKE_CXX_FLAGS_INIT "${flags} ${own_cxx} ${c_folders}")
