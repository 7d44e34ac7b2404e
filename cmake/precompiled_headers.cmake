# The headers that most sources include are compiled once for all targets of a kind: reading them is
# the larger part of compiling a source. A source still includes all it uses; preset `dev`, which lint
# reads, builds without this and holds it to that.

# Compiles HEADERS for the targets that `share_headers` is told of. PIC is what their code is made
# for, a library (-fPIC) or a program (-fPIE); LIBRARIES tells where the headers are found.
function(shared_headers name)
  cmake_parse_arguments(ARG "" "PIC" "HEADERS;LIBRARIES" ${ARGN})
  file(GENERATE OUTPUT ${CMAKE_CURRENT_BINARY_DIR}/${name}.cpp CONTENT "")
  add_library(${name} OBJECT ${CMAKE_CURRENT_BINARY_DIR}/${name}.cpp)
  set_target_properties(${name} PROPERTIES POSITION_INDEPENDENT_CODE OFF)
  target_compile_options(${name} PRIVATE ${ARG_PIC})
  target_link_libraries(${name} PRIVATE ${ARG_LIBRARIES} aluframe_options)
  target_precompile_headers(${name} PRIVATE ${ARG_HEADERS})
endfunction()

# Gives the named headers to every target of one TYPE in a folder and those below it.
function(share_headers name type folder)
  get_property(targets DIRECTORY ${folder} PROPERTY BUILDSYSTEM_TARGETS)
  foreach(target IN LISTS targets)
    get_target_property(target_type ${target} TYPE)
    if(target_type STREQUAL type)
      target_precompile_headers(${target} REUSE_FROM ${name})
      # They are taken only where the same macros stand.
      target_compile_definitions(${target} PRIVATE $<TARGET_PROPERTY:${name},COMPILE_DEFINITIONS>)
    endif()
  endforeach()
  get_property(below DIRECTORY ${folder} PROPERTY SUBDIRECTORIES)
  foreach(folder_below IN LISTS below)
    share_headers(${name} ${type} ${folder_below})
  endforeach()
endfunction()
