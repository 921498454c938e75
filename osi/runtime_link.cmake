# Every shared library that links the framework is a module of its own, with
# its own registry and module globals: the framework's symbols stay inside it,
# and only the four module entries are exported.
set_target_properties(velora_osi PROPERTIES
  CXX_VISIBILITY_PRESET hidden
  VISIBILITY_INLINES_HIDDEN ON)

# The module entries as an object that each module (the plug-in bundle, test
# modules) links directly, so that the linker always keeps them.
add_library(velora_module_entries OBJECT ${CMAKE_CURRENT_LIST_DIR}/mdlentries.cpp)
set_target_properties(velora_module_entries PROPERTIES
  POSITION_INDEPENDENT_CODE ON
  CXX_VISIBILITY_PRESET hidden
  VISIBILITY_INLINES_HIDDEN ON)
target_link_libraries(velora_module_entries PUBLIC velora_osi PRIVATE velora_warnings)
