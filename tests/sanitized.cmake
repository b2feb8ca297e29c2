# The unit tests once more, where faults show that an ordinary run hides. Nothing of this is built or
# run but by script/sanitize: ctest takes these tests only with the configuration that they name.
add_custom_target(sanitized_tests)

# Left out under valgrind, where they would take half an hour: hundreds of thousands of texts and
# millions of sums in registers. All short texts and every edge stay in. One test reads a stack that
# is no more in use, which valgrind rightly refuses.
set(sweeps *Random* *WhereTheSeparatorOccurs DateTexts.*AsTheNaive* *OfTheFormulas* mktime_1.AgreesWithTheNaiveOne*
           Icu.AgreesOn* DivideDown.* WrapToInt32.* WriteNumber.WritesAsPrintfDoes
           NandSetRote.KeepsItsPagesOnTheStack)
list(JOIN sweeps : sweeps)

set(ubsan_words -O1 -g1 -fsanitize=undefined -fno-sanitize-recover=all)
# Without freeres, which writes out the buffers of a child that ends by _exit.
set(valgrind_words --quiet --error-exitcode=99 --run-libc-freeres=no --run-cxx-freeres=no
                   --leak-check=full --errors-for-leak-kinds=definite --show-leak-kinds=definite)

# On ARM undefined behaviour is looked for in the product alone, so that the tests need no second
# compilation. Undefined behaviour of the tests is found on the host.
if(CMAKE_CROSSCOMPILING)
    list(TRANSFORM library_sources PREPEND ${PROJECT_SOURCE_DIR}/ OUTPUT_VARIABLE ubsan_sources)
    add_library(ubsan_objects OBJECT ${ubsan_sources})
    target_link_libraries(ubsan_objects PRIVATE orvatool_product_flags)
    target_compile_options(ubsan_objects PRIVATE ${ubsan_words})
    set_target_properties(ubsan_objects PROPERTIES POSITION_INDEPENDENT_CODE ON EXCLUDE_FROM_ALL ON)
endif()

# The objects of the product stand first: of an inline function the linker takes the first copy.
function(add_ubsan_test name)
    add_executable(${name}_ubsan EXCLUDE_FROM_ALL $<TARGET_OBJECTS:ubsan_objects>
                                                  $<TARGET_OBJECTS:${name}>)
    target_link_libraries(${name}_ubsan PRIVATE $<TARGET_PROPERTY:${name},LINK_LIBRARIES> atomic)
    target_link_options(${name}_ubsan PRIVATE $<TARGET_PROPERTY:${name},LINK_OPTIONS>
                        -fsanitize=undefined)
    add_dependencies(sanitized_tests ${name}_ubsan)
    add_test(NAME ${name}_ubsan COMMAND ${name}_ubsan CONFIGURATIONS sanitized)
endfunction()

function(add_valgrind_test name)
    add_dependencies(sanitized_tests ${name})
    add_test(NAME ${name}_valgrind
             COMMAND valgrind ${valgrind_words} $<TARGET_FILE:${name}> --gtest_filter=-${sweeps}
             CONFIGURATIONS sanitized)
endfunction()

# What the headers let several threads do at once, and the log.
function(add_threads_test name)
    add_dependencies(sanitized_tests ${name})
    add_test(NAME ${name}_tsan COMMAND ${name} CONFIGURATIONS sanitized)
endfunction()

# add_sanitized_test(NAME): on ARM with UndefinedBehaviorSanitizer, on the host under valgrind, in a
# build with ThreadSanitizer as it is.
function(add_sanitized_test name)
    if(CMAKE_CROSSCOMPILING)
        add_ubsan_test(${name})
    elseif(NOT ORVATOOL_SANITIZE)
        add_valgrind_test(${name})
    elseif(ORVATOOL_SANITIZE STREQUAL "thread" AND name MATCHES "^(log|threads)_test$")
        add_threads_test(${name})
    endif()
endfunction()

# add_planted_tests(FAULTS fault... [COMMAND word...] [CONFIGURATIONS name]): that each fault is refused,
# and the program without one is not.
function(add_planted_tests)
    cmake_parse_arguments(PARSE_ARGV 0 PLANTED "" "CONFIGURATIONS" "FAULTS;COMMAND")
    foreach(fault none ${PLANTED_FAULTS})
        add_test(NAME ${fault}_planted COMMAND ${PLANTED_COMMAND} $<TARGET_FILE:planted_fault> ${fault}
                 CONFIGURATIONS ${PLANTED_CONFIGURATIONS})
    endforeach()
    list(TRANSFORM PLANTED_FAULTS APPEND _planted)
    set_tests_properties(${PLANTED_FAULTS} PROPERTIES WILL_FAIL ON)
endfunction()

add_test_sources(support/planted_fault.cpp)
add_executable(planted_fault support/planted_fault.cpp)
target_link_libraries(planted_fault PRIVATE orvatool_flags)
add_dependencies(sanitized_tests planted_fault)
if(CMAKE_CROSSCOMPILING)
    target_compile_options(planted_fault PRIVATE ${ubsan_words})
    target_link_libraries(planted_fault PRIVATE atomic)
    target_link_options(planted_fault PRIVATE -fsanitize=undefined)
    add_planted_tests(FAULTS overflow COMMAND ${CMAKE_CROSSCOMPILING_EMULATOR} CONFIGURATIONS sanitized)
elseif(NOT ORVATOOL_SANITIZE)
    add_planted_tests(FAULTS bounds value leak COMMAND valgrind ${valgrind_words} CONFIGURATIONS sanitized)
elseif(ORVATOOL_SANITIZE STREQUAL "thread")
    add_planted_tests(FAULTS race CONFIGURATIONS sanitized)
else()
    add_planted_tests(FAULTS bounds leak overflow)
endif()
