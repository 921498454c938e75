# Libraries of the framework's areas (osi/, persist/) and of the graph toolkit (vgui/).

# velora_area_headers(TARGET FOLDER): the headers of FOLDER (osi/pool,
# persist, ...) reach only the code that links TARGET, under their usual
# paths ("osi/pool/coparallel.h"): the include root that TARGET gives holds
# that one folder, linked from the sources. An include from an area that the
# library does not link then fails to compile.
function(velora_area_headers target folder)
  set(root "${PROJECT_BINARY_DIR}/area_headers/${target}")
  get_filename_component(parent "${root}/${folder}" DIRECTORY)
  file(MAKE_DIRECTORY "${parent}")
  file(CREATE_LINK "${PROJECT_SOURCE_DIR}/${folder}" "${root}/${folder}" SYMBOLIC)
  target_include_directories(${target} PUBLIC "${root}")
endfunction()

# velora_framework_area(NAME SOURCES...): the area of the framework in the
# current folder as a static library. Every shared library that links the
# framework is a module of its own, with its own registry and module globals:
# the framework's symbols stay inside it, and only the four module entries are
# exported.
function(velora_framework_area name)
  add_library(${name} STATIC ${ARGN})
  file(RELATIVE_PATH folder "${PROJECT_SOURCE_DIR}" "${CMAKE_CURRENT_SOURCE_DIR}")
  velora_area_headers(${name} "${folder}")
  target_link_libraries(${name} PRIVATE velora_warnings)
  set_target_properties(${name} PROPERTIES
    POSITION_INDEPENDENT_CODE ON
    CXX_VISIBILITY_PRESET hidden
    VISIBILITY_INLINES_HIDDEN ON)
endfunction()
