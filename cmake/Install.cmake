# What `cmake --install` puts in place: library, header, CMake package, pkg-config file. (The host installs
# itself and its man page in cli/.) The components are what packages are made of.
include(CMakePackageConfigHelpers)

install(TARGETS zelconvert EXPORT zelconvertTargets
        RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT library
        LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT library NAMELINK_COMPONENT development
        ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT development)
install(DIRECTORY ${PROJECT_SOURCE_DIR}/include/zelconvert DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}
        COMPONENT development)

set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/zelconvert)
install(EXPORT zelconvertTargets NAMESPACE zelconvert:: FILE zelconvertTargets.cmake
        DESTINATION ${package_dir} COMPONENT development)
configure_package_config_file(
  ${PROJECT_SOURCE_DIR}/cmake/zelconvertConfig.cmake.in
  ${PROJECT_BINARY_DIR}/zelconvertConfig.cmake INSTALL_DESTINATION ${package_dir})
write_basic_package_version_file(${PROJECT_BINARY_DIR}/zelconvertConfigVersion.cmake
                                 COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/zelconvertConfig.cmake
              ${PROJECT_BINARY_DIR}/zelconvertConfigVersion.cmake DESTINATION ${package_dir}
        COMPONENT development)

# The package may be moved as a whole: its files find one another by relative paths.
if(IS_ABSOLUTE "${CMAKE_INSTALL_LIBDIR}")
  set(pc_prefix ${CMAKE_INSTALL_PREFIX})
else()
  file(RELATIVE_PATH up ${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig ${CMAKE_INSTALL_PREFIX})
  set(pc_prefix "\${pcfiledir}/${up}")
endif()
configure_file(${PROJECT_SOURCE_DIR}/cmake/zelconvert.pc.in ${PROJECT_BINARY_DIR}/zelconvert.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/zelconvert.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig
        COMPONENT development)
