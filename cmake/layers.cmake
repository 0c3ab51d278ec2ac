# tovak_layer(NAME SOURCES ... USES layer...)
#
# One folder of the core as a static library. A layer's headers are reached as "folder/header.h" through an include
# directory that holds this one folder alone, so a file can include only from the layers its target links: a
# dependency against the grain does not compile.
function(tovak_layer name)
  cmake_parse_arguments(LAYER "" "" "SOURCES;USES" ${ARGN})
  set(window ${CMAKE_BINARY_DIR}/layers/${name})
  file(MAKE_DIRECTORY ${window})
  file(CREATE_LINK ${CMAKE_CURRENT_SOURCE_DIR} ${window}/${name} SYMBOLIC)
  add_library(tovak_${name} STATIC ${LAYER_SOURCES})
  target_include_directories(tovak_${name} PUBLIC ${window})
  list(TRANSFORM LAYER_USES PREPEND tovak_)
  target_link_libraries(tovak_${name} PUBLIC ${LAYER_USES})
endfunction()
