# Installs the contract and the module for other hosts, as the CMake package `aluframe` with the
# targets aluframe::host and aluframe::tz_alu, and the program.
include(CMakePackageConfigHelpers)

set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/aluframe)

install(TARGETS host tz_alu EXPORT aluframe-targets
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
  ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR}
  RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
install(DIRECTORY host tz_alu DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/aluframe
  FILES_MATCHING PATTERN "*.h")
install(EXPORT aluframe-targets NAMESPACE aluframe:: DESTINATION ${package_dir})
configure_package_config_file(cmake/aluframe-config.cmake.in
  ${CMAKE_BINARY_DIR}/aluframe-config.cmake INSTALL_DESTINATION ${package_dir})
write_basic_package_version_file(${CMAKE_BINARY_DIR}/aluframe-config-version.cmake
  COMPATIBILITY SameMinorVersion)
install(FILES
  ${CMAKE_BINARY_DIR}/aluframe-config.cmake
  ${CMAKE_BINARY_DIR}/aluframe-config-version.cmake
  DESTINATION ${package_dir})

if(ALUFRAME_APPS)
  install(TARGETS aluframe RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
endif()
