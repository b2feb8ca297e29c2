# The C library's records as this build sees them: callers must see the same, and their headers ask.

include(CheckCXXSymbolExists)
include(CheckTypeSize)

if(CMAKE_CXX_BYTE_ORDER STREQUAL BIG_ENDIAN)
    message(FATAL_ERROR "${CMAKE_SYSTEM_PROCESSOR} is big-endian; the checksum of an odd number of bytes and"
                        " packed records are those of little-endian terminals. Choose such a compiler.")
endif()

# CMake keeps what it found; other flags, or these taken out again, ask anew.
set(names ORVAUTIL_SIZEOF_OFF_T ORVAUTIL_SIZEOF_TIME_T ORVAUTIL_SIZEOF_DIRENT ORVAUTIL_SIZEOF_STAT)
if(NOT "${ORVATOOL_LAYOUT_FLAGS}" STREQUAL "${CMAKE_CXX_FLAGS}")
    foreach(name IN LISTS names)
        unset(${name} CACHE)
        unset(HAVE_${name} CACHE)
    endforeach()
    unset(ORVATOOL_GLIBC CACHE)
    set(ORVATOOL_LAYOUT_FLAGS "${CMAKE_CXX_FLAGS}" CACHE INTERNAL "Flags that the sizes were found with")
endif()

set(CMAKE_EXTRA_INCLUDE_FILES dirent.h sys/stat.h time.h)
check_type_size(off_t ORVAUTIL_SIZEOF_OFF_T LANGUAGE CXX)
check_type_size(time_t ORVAUTIL_SIZEOF_TIME_T LANGUAGE CXX)
check_type_size("struct dirent" ORVAUTIL_SIZEOF_DIRENT LANGUAGE CXX)
check_type_size("struct stat" ORVAUTIL_SIZEOF_STAT LANGUAGE CXX)
unset(CMAKE_EXTRA_INCLUDE_FILES)
foreach(name IN LISTS names)
    if(NOT ${name})
        message(FATAL_ERROR "With the flags \"${CMAKE_CXX_FLAGS}\" the C library's headers do not compile,"
                            " and CMakeFiles/CMakeError.log tells why. Where it is -D_TIME_BITS=64, take that"
                            " out of the flags.")
    endif()
endforeach()

# Where the C library has both layouts, the terminal's programs use the narrow one. Others, as musl,
# have 64 bits only.
check_cxx_symbol_exists(__GLIBC__ features.h ORVATOOL_GLIBC)
if(ORVATOOL_GLIBC AND CMAKE_SIZEOF_VOID_P EQUAL 4)
    if(ORVAUTIL_SIZEOF_OFF_T GREATER 4 OR ORVAUTIL_SIZEOF_TIME_T GREATER 4)
        message(FATAL_ERROR "With the flags \"${CMAKE_CXX_FLAGS}\" off_t has ${ORVAUTIL_SIZEOF_OFF_T} bytes and"
                            " time_t ${ORVAUTIL_SIZEOF_TIME_T}; the terminal's programs pass 4 of each."
                            " Take -D_FILE_OFFSET_BITS=64 and -D_TIME_BITS=64 out of the flags, or put"
                            " -U_FILE_OFFSET_BITS -U_TIME_BITS behind them.")
    endif()
endif()

configure_file(${CMAKE_CURRENT_LIST_DIR}/config.h.in ${PROJECT_BINARY_DIR}/include/orvautil/config.h @ONLY)
