# Brings in the VST3 SDK through its own CMake, without its sample plug-ins and
# without linking built plug-ins into ~/.vst3 (installing is an explicit step).
set(SMTG_ENABLE_VST3_PLUGIN_EXAMPLES OFF CACHE BOOL "" FORCE)
set(SMTG_ENABLE_VST3_HOSTING_EXAMPLES ON CACHE BOOL "" FORCE)
set(SMTG_ENABLE_VSTGUI_SUPPORT ON CACHE BOOL "" FORCE)
set(SMTG_CREATE_PLUGIN_LINK OFF CACHE BOOL "" FORCE)
set(SMTG_RUN_VST_VALIDATOR OFF CACHE BOOL "" FORCE)
set(SMTG_CREATE_MODULE_INFO ON CACHE BOOL "" FORCE)

# Only what the project's targets depend on gets built: the SDK libraries,
# VSTGUI, the moduleinfo tool and the validator.
add_subdirectory("${VST3_SDK_ROOT}" "${PROJECT_BINARY_DIR}/vst3sdk" EXCLUDE_FROM_ALL)
smtg_enable_vst3_sdk()

# The SDK's headers are not ours to keep warning-free: include them as system
# headers so -Werror applies to the project's own code only.
add_library(velora_sdk_headers INTERFACE)
target_include_directories(velora_sdk_headers SYSTEM INTERFACE
  "${VST3_SDK_ROOT}"
  "${VST3_SDK_ROOT}/vstgui4")
