# How our code is compiled: `orvatool_flags` for everything, `orvatool_product_flags` for what ships.

add_library(orvatool_flags INTERFACE)
target_include_directories(orvatool_flags INTERFACE ${PROJECT_SOURCE_DIR} ${PROJECT_BINARY_DIR}/include)
target_compile_options(orvatool_flags INTERFACE -Wall -Wextra -Wconversion -Wshadow)
if(CMAKE_CXX_COMPILER_ID STREQUAL GNU)
    # Texts that are cut to their buffers are our normal case.
    target_compile_options(orvatool_flags INTERFACE -Wno-format-truncation)
endif()
if(ORVATOOL_WERROR)
    target_compile_options(orvatool_flags INTERFACE -Werror)
endif()
# No path of the build machine in what is built: the same sources give the same files everywhere. The
# coverage report looks for the sources where they are.
if(NOT ORVATOOL_COVERAGE)
    target_compile_options(orvatool_flags INTERFACE -ffile-prefix-map=${PROJECT_SOURCE_DIR}/=
                                                    -ffile-prefix-map=${PROJECT_BINARY_DIR}=.)
endif()
if(ORVATOOL_SANITIZE)
    add_compile_options(-fsanitize=${ORVATOOL_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
    add_link_options(-fsanitize=${ORVATOOL_SANITIZE})
    if(CMAKE_CXX_COMPILER_ID STREQUAL GNU)
        # Linked statically, or a preloaded library is refused.
        add_link_options(-static-libasan)
        # The checks that are added make g++ see paths in <regex> that do not exist.
        add_compile_options(-Wno-maybe-uninitialized)
        # The product has no virtual functions; looking for them in GoogleTest's headers takes long.
        add_compile_options(-fno-sanitize=vptr)
    endif()
endif()

# Calendars must give the same doubles on every target: no fused operations. Without link-time
# optimisation, which drops what the tool itself never calls.
add_library(orvatool_product_flags INTERFACE)
target_link_libraries(orvatool_product_flags INTERFACE orvatool_flags)
target_compile_options(
    orvatool_product_flags
    INTERFACE -fvisibility=hidden
              -ffp-contract=off
              -fno-lto
              -fstack-protector-strong
              $<$<COMPILE_LANGUAGE:CXX>:-fno-exceptions>
              $<$<COMPILE_LANGUAGE:CXX>:-fno-rtti>
              $<$<COMPILE_LANGUAGE:CXX>:-fno-threadsafe-statics>)
if(NOT ORVATOOL_FORTIFY)
    # It renames platform functions: tests and tools that hook them would miss the calls.
    target_compile_options(orvatool_product_flags INTERFACE -U_FORTIFY_SOURCE)
endif()
