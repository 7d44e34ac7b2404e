# Debian packages, one for each part of cmake/install.cmake. A machine that checks models from the
# command line needs no windows, and one that only runs programs no headers.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME aluframe)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
# Packages describe themselves: the first line of a description is what lists of packages show.
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "")
set(CPACK_PACKAGE_CONTACT "AluFrame maintainers <maintainers@aluframe.invalid>")
set(CPACK_COMPONENTS_ALL program desktop development)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
  OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)

set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION science)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
# Where our own libraries stand, which belong to no installed package yet.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${CMAKE_LIBRARY_OUTPUT_DIRECTORY})

set(CPACK_DEBIAN_PROGRAM_PACKAGE_NAME aluframe)
set(CPACK_DEBIAN_PROGRAM_PACKAGE_CONTROL_EXTRA ${PROJECT_SOURCE_DIR}/packaging/debian/triggers)
set(CPACK_DEBIAN_PROGRAM_DESCRIPTION "check aluminium frames to GB 50429-2007
AluFrame computes the forces of aluminium frames (curtain walls, footbridges,
reticulated domes) under their loads, finds their members and effective length
factors, and checks them to GB 50429-2007: every element, at up to five
positions, for every load combination.
.
This package has the command line with its libraries, the documentation in
English and Chinese, and examples of models.")

set(CPACK_DEBIAN_DESKTOP_PACKAGE_NAME aluframe-desktop)
set(CPACK_DEBIAN_DESKTOP_PACKAGE_DEPENDS "aluframe (= ${PROJECT_VERSION})")
# Windows without a processor for graphics, on Wayland, and with Chinese texts.
set(CPACK_DEBIAN_DESKTOP_PACKAGE_RECOMMENDS
  "libgl1-mesa-dri, fonts-dejavu-core, fonts-noto-cjk, qt6-wayland, shared-mime-info, hicolor-icon-theme")
set(CPACK_DEBIAN_DESKTOP_DESCRIPTION "check aluminium frames to GB 50429-2007, desktop program
AluFrame computes the forces of aluminium frames (curtain walls, footbridges,
reticulated domes) under their loads and checks them to GB 50429-2007.
.
This package has the desktop program, which shows a model with its results in
three dimensions and in tables, and edits what it is designed with.")

set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME aluframe-dev)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS "aluframe (= ${PROJECT_VERSION})")
set(CPACK_DEBIAN_DEVELOPMENT_DESCRIPTION "check aluminium frames to GB 50429-2007, module for other programs
AluFrame computes the forces of aluminium frames (curtain walls, footbridges,
reticulated domes) under their loads and checks them to GB 50429-2007.
.
This package has what other programs need to host its design-check module:
the headers of the module and of its contract, and the CMake package.")

# What only Debian wants; `cmake --install` leaves it out.
aluframe_compressed(packaging/debian/changelog debian/changelog.gz)
foreach(component PROGRAM DESKTOP DEVELOPMENT)
  set(package ${CPACK_DEBIAN_${component}_PACKAGE_NAME})
  string(TOLOWER ${component} part)
  install(FILES packaging/debian/copyright ${CMAKE_BINARY_DIR}/packaging/debian/changelog.gz
    DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/${package} COMPONENT ${part} EXCLUDE_FROM_ALL)
endforeach()
install(FILES packaging/debian/aluframe.lintian-overrides RENAME aluframe
  DESTINATION ${CMAKE_INSTALL_DATADIR}/lintian/overrides COMPONENT program EXCLUDE_FROM_ALL)

include(CPack)
