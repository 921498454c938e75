# The VST3 SDK (with VSTGUI), built from source with the project through its
# own CMake (VST3_SDK_ROOT, see VeloraSdkRoot.cmake).
set(vst3sdk_SOURCE_DIR "${VST3_SDK_ROOT}")
list(APPEND CMAKE_MODULE_PATH "${VST3_SDK_ROOT}/cmake/modules")
include(SMTG_VST3_SDK)

# No sample plug-ins, and no automatic link of built plug-ins into ~/.vst3
# (installing is an explicit step).
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
