# Qt's and gtest's headers parsed once a flavour instead of once a file. The release does without, and so proves that every
# file includes what it needs.
option(ALGO_PRECOMPILED_HEADERS "Parse Qt's and gtest's headers once" OFF)
if(ALGO_PRECOMPILED_HEADERS AND CMAKE_CXX_COMPILER_ID STREQUAL GNU)
  add_compile_options(-fpch-preprocess) # for ccache
elseif(ALGO_PRECOMPILED_HEADERS)
  add_compile_options("SHELL:-Xclang -fno-pch-timestamp") # likewise
  # clang reads them only where code is as movable as theirs: programs as libraries.
  set(CMAKE_CXX_COMPILE_OPTIONS_PIE ${CMAKE_CXX_COMPILE_OPTIONS_PIC})
endif()

# algo_precompiled_flavour(FLAVOUR VISIBILITY LIBS…): the headers of cmake/precompiled/FLAVOUR.h, compiled with the options
# of the folder that calls. What a header declares keeps the visibility that it was parsed with.
function(algo_precompiled_flavour flavour visibility)
  set(target precompiled_${flavour}_${visibility})
  file(CONFIGURE OUTPUT ${target}.cpp CONTENT "// The headers alone.\n" @ONLY)
  string(COMPARE EQUAL ${visibility} hidden hides_inlines)
  add_library(${target} OBJECT ${CMAKE_CURRENT_BINARY_DIR}/${target}.cpp)
  set_target_properties(${target} PROPERTIES
    AUTOMOC OFF
    AUTOUIC OFF
    AUTORCC OFF
    CXX_VISIBILITY_PRESET ${visibility}
    VISIBILITY_INLINES_HIDDEN ${hides_inlines})
  target_link_libraries(${target} PRIVATE ${ARGN})
  target_precompile_headers(${target} PRIVATE ${PROJECT_SOURCE_DIR}/cmake/precompiled/${flavour}.h)
endfunction()

# Whether LIBRARY or anything that it links is WANTED.
function(algo_links library wanted result)
  set(${result} OFF PARENT_SCOPE)
  if(library STREQUAL wanted)
    set(${result} ON PARENT_SCOPE)
    return()
  endif()
  if(NOT TARGET ${library})
    return()
  endif()
  get_target_property(linked ${library} INTERFACE_LINK_LIBRARIES)
  get_target_property(own ${library} LINK_LIBRARIES)
  foreach(next ${linked} ${own})
    algo_links("${next}" ${wanted} found)
    if(found)
      set(${result} ON PARENT_SCOPE)
      return()
    endif()
  endforeach()
endfunction()

# algo_use_precompiled(TARGET): the flavour with windows where the target may use them.
function(algo_use_precompiled target)
  set(flavour core)
  algo_links(${target} Qt5::Widgets widgets)
  if(widgets)
    set(flavour widgets)
  endif()
  get_target_property(visibility ${target} CXX_VISIBILITY_PRESET)
  if(NOT visibility)
    set(visibility default)
  endif()
  target_precompile_headers(${target} REUSE_FROM precompiled_${flavour}_${visibility})
endfunction()

# algo_precompile_folder(FOLDER): every target that FOLDER and those below it compile.
function(algo_precompile_folder folder)
  get_property(targets DIRECTORY ${folder} PROPERTY BUILDSYSTEM_TARGETS)
  foreach(target ${targets})
    get_target_property(type ${target} TYPE)
    get_target_property(sources ${target} SOURCES)
    get_target_property(standard ${target} CXX_STANDARD)
    if(NOT standard EQUAL CMAKE_CXX_STANDARD)
      continue() # its compiler could not read them
    endif()
    if(NOT target MATCHES "^precompiled_" AND type MATCHES "(STATIC|SHARED|OBJECT)_LIBRARY|EXECUTABLE" AND sources MATCHES "[.]cpp")
      algo_use_precompiled(${target})
    endif()
  endforeach()
  get_property(folders DIRECTORY ${folder} PROPERTY SUBDIRECTORIES)
  foreach(next ${folders})
    algo_precompile_folder(${next})
  endforeach()
endfunction()
