# What is installed, in three parts that are one Debian package each (cmake/package.cmake):
# program      the command line, the libraries it stands on, documentation and examples
# desktop      the desktop program and how desktops find it
# development  the contract and the module for other hosts: headers and the CMake package `aluframe`
#              with the targets aluframe::host and aluframe::tz_alu
include(CMakePackageConfigHelpers)

set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/aluframe)

# Libraries with their version belong to the programs, the links without it to who links against them.
install(TARGETS host tz_alu EXPORT aluframe-targets
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT program NAMELINK_COMPONENT development
  ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT development
  RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT program)
set(include_dir ${CMAKE_INSTALL_INCLUDEDIR}/aluframe)
install(DIRECTORY host DESTINATION ${include_dir} COMPONENT development
  FILES_MATCHING PATTERN "*.h" PATTERN src EXCLUDE)
install(DIRECTORY tz_alu/records DESTINATION ${include_dir}/tz_alu COMPONENT development
  FILES_MATCHING PATTERN "*.h")
# Of the rest of the module, only what it exports and what that includes.
foreach(header tz_alu_api.h tolerance.h report/aluprint.h report/report_literals.h
    engine/alucode_gb50429_07.h manager/dgnaludatamgr.h dialogs/dgnalucodedlg.h
    dialogs/dgnalumatdlg.h module/init_tz_aludll.h)
  cmake_path(GET header PARENT_PATH folder)
  install(FILES tz_alu/${header} DESTINATION ${include_dir}/tz_alu/${folder} COMPONENT development)
endforeach()
install(EXPORT aluframe-targets NAMESPACE aluframe:: DESTINATION ${package_dir}
  COMPONENT development)
configure_package_config_file(cmake/aluframe-config.cmake.in
  ${CMAKE_BINARY_DIR}/aluframe-config.cmake INSTALL_DESTINATION ${package_dir})
write_basic_package_version_file(${CMAKE_BINARY_DIR}/aluframe-config-version.cmake
  COMPATIBILITY SameMinorVersion)
install(FILES
  ${CMAKE_BINARY_DIR}/aluframe-config.cmake
  ${CMAKE_BINARY_DIR}/aluframe-config-version.cmake
  DESTINATION ${package_dir} COMPONENT development)

# A copy of `source` with gzip, without name and time, named `compressed` below the build folder.
function(aluframe_compressed source compressed)
  set(copy ${CMAKE_BINARY_DIR}/packaging/${compressed})
  cmake_path(GET copy PARENT_PATH folder)
  file(MAKE_DIRECTORY ${folder})
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${source})
  execute_process(COMMAND gzip -9nc ${PROJECT_SOURCE_DIR}/${source}
    OUTPUT_FILE ${copy} COMMAND_ERROR_IS_FATAL ANY)
endfunction()

function(aluframe_install_manual program component)
  if(UNIX)
    aluframe_compressed(packaging/man/${program}.1 man/${program}.1.gz)
    install(FILES ${CMAKE_BINARY_DIR}/packaging/man/${program}.1.gz
      DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 COMPONENT ${component})
  endif()
endfunction()

if(ALUFRAME_APPS)
  install(TARGETS aluframe RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT program)
  aluframe_install_manual(aluframe program)
  install(FILES README.md README.zh-CN.md CHANGELOG.md DESTINATION ${CMAKE_INSTALL_DOCDIR}
    COMPONENT program)
  install(DIRECTORY docs DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT program)
  install(DIRECTORY examples DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT program
    FILES_MATCHING PATTERN "*.json" PATTERN "*.jsonl")
  install(FILES schema/aluframe-model.schema.json
    DESTINATION ${CMAKE_INSTALL_DATADIR}/aluframe/schema COMPONENT program)
endif()
if(TARGET aluframe-desktop)
  install(TARGETS aluframe-desktop RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT desktop)
  aluframe_install_manual(aluframe-desktop desktop)
  install(FILES packaging/aluframe-desktop.desktop
    DESTINATION ${CMAKE_INSTALL_DATADIR}/applications COMPONENT desktop)
  install(FILES packaging/aluframe.xml
    DESTINATION ${CMAKE_INSTALL_DATADIR}/mime/packages COMPONENT desktop)
  set(icons_dir ${CMAKE_INSTALL_DATADIR}/icons/hicolor)
  install(FILES packaging/icons/aluframe.svg DESTINATION ${icons_dir}/scalable/apps
    COMPONENT desktop)
  foreach(size 16 24 32 48 64 128 256)
    install(FILES packaging/icons/aluframe-${size}.png RENAME aluframe.png
      DESTINATION ${icons_dir}/${size}x${size}/apps COMPONENT desktop)
  endforeach()
endif()
