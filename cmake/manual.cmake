# The manual: the tool's page, and the library's pages of section 3, which docs/manual.py writes from
# the comments of the public headers. It takes python3; a build without it has all but these pages.
if(ORVATOOL_INSTALL)
    install(FILES docs/orvatool.8 DESTINATION ${CMAKE_INSTALL_MANDIR}/man8 COMPONENT manual)
endif()

find_package(Python3 3.9 QUIET COMPONENTS Interpreter)
if(NOT Python3_Interpreter_FOUND)
    message(STATUS "No python3 (3.9 or later): the library's manual pages are left out")
    return()
endif()

# The page of util/timeutils/texts.h is orvautil_timeutils_texts.3.
set(manual_folder ${PROJECT_BINARY_DIR}/man3)
list(TRANSFORM public_headers REPLACE "^(log|util)/(.*)\\.h$" "\\2" OUTPUT_VARIABLE manual_pages)
list(TRANSFORM manual_pages REPLACE "/" "_")
list(TRANSFORM manual_pages REPLACE "(.+)" "${manual_folder}/orvautil_\\1.3")
list(APPEND manual_pages ${manual_folder}/orvautil.3)

file(MAKE_DIRECTORY ${manual_folder})
add_custom_command(
    OUTPUT ${manual_pages}
    COMMAND ${Python3_EXECUTABLE} -B docs/manual.py ${manual_folder} ${public_headers}
    WORKING_DIRECTORY ${PROJECT_SOURCE_DIR}
    DEPENDS docs/manual.py docs/orvatool.8 ${public_headers}
    COMMENT "Writing the library's manual pages"
    VERBATIM)
add_custom_target(orvautil_manual ALL DEPENDS ${manual_pages})
if(ORVATOOL_INSTALL)
    install(FILES ${manual_pages} DESTINATION ${CMAKE_INSTALL_MANDIR}/man3 COMPONENT manual)
endif()
