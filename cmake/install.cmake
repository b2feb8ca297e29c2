# What `cmake --install` puts where, and how the target orvatool_uninstall takes it away.

if(NOT ORVATOOL_INSTALL)
    return()
endif()

set(header_folder ${CMAKE_INSTALL_INCLUDEDIR}/orvautil)
set(package_folder ${CMAKE_INSTALL_LIBDIR}/cmake/orvautil)
set(pkgconfig_folder ${CMAKE_INSTALL_LIBDIR}/pkgconfig)

# First of all: which folders are missing, so that uninstalling removes these and no other.
set(install_folders ${CMAKE_INSTALL_SBINDIR} ${header_folder}/timeutils ${package_folder} ${pkgconfig_folder}
                    ${CMAKE_INSTALL_MANDIR}/man3 ${CMAKE_INSTALL_MANDIR}/man8)
configure_file(cmake/note_folders.cmake.in ${PROJECT_BINARY_DIR}/note_folders.cmake @ONLY)
install(SCRIPT ${PROJECT_BINARY_DIR}/note_folders.cmake)
configure_file(cmake/uninstall.cmake.in ${PROJECT_BINARY_DIR}/uninstall.cmake @ONLY)
add_custom_target(orvatool_uninstall COMMAND ${CMAKE_COMMAND} -P ${PROJECT_BINARY_DIR}/uninstall.cmake)

install(TARGETS orvatool RUNTIME DESTINATION ${CMAKE_INSTALL_SBINDIR})
# The run path is for the build folder only. CMake's own way to take it off ends it in ':' until
# then, which is the current folder: a foreign libtroption.so there would be loaded.
install(
    CODE "set(tool \"${CMAKE_INSTALL_SBINDIR}/orvatool\")
          cmake_path(ABSOLUTE_PATH tool BASE_DIRECTORY \"\${CMAKE_INSTALL_PREFIX}\")
          file(RPATH_REMOVE FILE \"\$ENV{DESTDIR}\${tool}\")")
if(ORVATOOL_INSTALL_STANDINS AND NOT ORVATOOL_TROPTION)
    install(TARGETS orvatool_troption LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR})
endif()
if(NOT TARGET orvautil)
    return()
endif()

install(TARGETS orvautil orvautil_static EXPORT orvautil)
foreach(header IN LISTS public_headers)
    string(REGEX REPLACE "^(log|util)/" "" name ${header})
    cmake_path(GET name PARENT_PATH folder)
    install(FILES ${header} DESTINATION ${header_folder}/${folder})
endforeach()
install(FILES ${PROJECT_BINARY_DIR}/include/orvautil/config.h DESTINATION ${header_folder})

# pkg-config finds the folders from its own place, so that an installation can be moved.
set(libdir ${CMAKE_INSTALL_LIBDIR})
set(includedir ${CMAKE_INSTALL_INCLUDEDIR})
cmake_path(ABSOLUTE_PATH pkgconfig_folder BASE_DIRECTORY ${CMAKE_INSTALL_PREFIX} OUTPUT_VARIABLE from)
foreach(folder libdir includedir)
    cmake_path(ABSOLUTE_PATH ${folder} BASE_DIRECTORY ${CMAKE_INSTALL_PREFIX})
    cmake_path(RELATIVE_PATH ${folder} BASE_DIRECTORY ${from})
endforeach()
configure_file(cmake/orvautil.pc.in ${PROJECT_BINARY_DIR}/orvautil.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/orvautil.pc DESTINATION ${pkgconfig_folder})

include(CMakePackageConfigHelpers)
set(package_files ${PROJECT_BINARY_DIR}/orvautil-config.cmake ${PROJECT_BINARY_DIR}/orvautil-config-version.cmake)
configure_file(cmake/orvautil-config.cmake.in ${PROJECT_BINARY_DIR}/orvautil-config.cmake COPYONLY)
write_basic_package_version_file(${PROJECT_BINARY_DIR}/orvautil-config-version.cmake
                                 COMPATIBILITY SameMajorVersion)
install(FILES ${package_files} DESTINATION ${package_folder})
install(EXPORT orvautil NAMESPACE orvautil:: FILE orvautil-targets.cmake DESTINATION ${package_folder})
