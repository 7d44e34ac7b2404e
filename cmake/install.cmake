# Installs the contract and the module for other hosts, as the CMake package `aluframe` with the
# targets aluframe::host and aluframe::tz_alu, and the program.
include(CMakePackageConfigHelpers)

set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/aluframe)

install(TARGETS host tz_alu EXPORT aluframe-targets
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
  ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR}
  RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
set(include_dir ${CMAKE_INSTALL_INCLUDEDIR}/aluframe)
install(DIRECTORY host DESTINATION ${include_dir} FILES_MATCHING PATTERN "*.h")
install(DIRECTORY tz_alu/records DESTINATION ${include_dir}/tz_alu FILES_MATCHING PATTERN "*.h")
# Of the rest of the module, only what it exports and what that includes.
foreach(header tz_alu_api.h tolerance.h report/aluprint.h report/report_literals.h
    engine/alucode_gb50429_07.h manager/dgnaludatamgr.h dialogs/dgnalucodedlg.h
    dialogs/dgnalumatdlg.h module/init_tz_aludll.h)
  cmake_path(GET header PARENT_PATH folder)
  install(FILES tz_alu/${header} DESTINATION ${include_dir}/tz_alu/${folder})
endforeach()
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
if(TARGET aluframe-desktop)
  install(TARGETS aluframe-desktop RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
endif()
