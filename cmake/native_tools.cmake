# Tools that run while the project is built, made for the machine that builds.
include(ExternalProject)
set(native_tools ${CMAKE_BINARY_DIR}/native_tools)
ExternalProject_Add(native_tools
  SOURCE_DIR ${PROJECT_SOURCE_DIR}/tools/resources/native
  BINARY_DIR ${native_tools}
  CMAKE_ARGS -DCMAKE_BUILD_TYPE=Release "-DCMAKE_CXX_FLAGS_RELEASE=-O2 -DNDEBUG"
  INSTALL_COMMAND ""
  BUILD_ALWAYS ON
  BUILD_BYPRODUCTS ${native_tools}/resource_compiler)
add_executable(resource_compiler IMPORTED GLOBAL)
set_target_properties(resource_compiler PROPERTIES
  IMPORTED_LOCATION ${native_tools}/resource_compiler)
add_dependencies(resource_compiler native_tools)
