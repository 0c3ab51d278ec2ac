# tovak_core: the folders of the core in one shared library. Program, window and engine use the same one, so that what is
# known of unfinished files is known once in a process.
add_library(tovak_core SHARED)
set_target_properties(tovak_core PROPERTIES OUTPUT_NAME tovak WINDOWS_EXPORT_ALL_SYMBOLS ON)
# Nothing replaces a function of the library: calls inside it need not go through the table for that.
target_link_options(tovak_core PRIVATE $<$<NOT:$<PLATFORM_ID:Windows>>:-Wl,-Bsymbolic-functions>)

# tovak_headers(NAME USES layer...)
#
# What may be included by whoever links tovak_NAME: a layer's headers are reached as "folder/header.h" through an include
# directory that holds this one folder alone, so a file can include only from the layers its target names. A dependency
# against the grain does not compile.
function(tovak_headers name)
  cmake_parse_arguments(LAYER "" "" "USES" ${ARGN})
  set(window ${CMAKE_BINARY_DIR}/layers/${name})
  file(MAKE_DIRECTORY ${window})
  file(CREATE_LINK ${CMAKE_CURRENT_SOURCE_DIR} ${window}/${name} SYMBOLIC)
  add_library(tovak_${name}_headers INTERFACE)
  target_include_directories(tovak_${name}_headers INTERFACE ${window})
  list(TRANSFORM LAYER_USES PREPEND tovak_)
  list(TRANSFORM LAYER_USES APPEND _headers)
  target_link_libraries(tovak_${name}_headers INTERFACE ${LAYER_USES})
endfunction()

# tovak_layer(NAME SOURCES ... USES layer...): one folder of the core.
function(tovak_layer name)
  cmake_parse_arguments(LAYER "" "" "SOURCES;USES" ${ARGN})
  tovak_headers(${name} USES ${LAYER_USES})
  add_library(tovak_${name}_objects OBJECT ${LAYER_SOURCES})
  # Everything in the core is there for program, window, engine and tests.
  set_target_properties(tovak_${name}_objects PROPERTIES CXX_VISIBILITY_PRESET default VISIBILITY_INLINES_HIDDEN ON)
  target_compile_options(tovak_${name}_objects PRIVATE -fno-semantic-interposition)
  target_link_libraries(tovak_${name}_objects PRIVATE tovak_${name}_headers)
  tovak_precompiled_as(tovak_${name}_objects tovak_text_objects ${TOVAK_STANDARD_HEADERS})
  target_sources(tovak_core PRIVATE $<TARGET_OBJECTS:tovak_${name}_objects>)
  add_library(tovak_${name} INTERFACE)
  target_link_libraries(tovak_${name} INTERFACE tovak_${name}_headers tovak_core)
endfunction()

# tovak_outer_layer(NAME SOURCES ... USES layer...): a folder that links more than the standard library, as a static
# library of its own.
function(tovak_outer_layer name)
  cmake_parse_arguments(LAYER "" "" "SOURCES;USES" ${ARGN})
  tovak_headers(${name} USES ${LAYER_USES})
  add_library(tovak_${name} STATIC ${LAYER_SOURCES})
  target_link_libraries(tovak_${name} PUBLIC tovak_${name}_headers tovak_core)
endfunction()
