# Where the VST3 SDK sources are. By default the tree that scripts/bootstrap.sh
# assembles; point VST3_SDK_ROOT at a checkout of your own to build against
# that instead.
set(velora_default_sdk "$ENV{HOME}/.cache/torvik-velora/vst3sdk-3.7.10.14+~4.13.3")
if(DEFINED ENV{VELORA_SDK_CACHE})
  set(velora_default_sdk "$ENV{VELORA_SDK_CACHE}")
endif()
set(VST3_SDK_ROOT "${velora_default_sdk}" CACHE PATH "Root of the VST3 SDK source tree")
if(NOT EXISTS "${VST3_SDK_ROOT}/pluginterfaces/base/funknown.h")
  message(FATAL_ERROR "No VST3 SDK at ${VST3_SDK_ROOT}: run scripts/bootstrap.sh or set VST3_SDK_ROOT")
endif()

# The SDK's headers are not ours to keep warning-free: they are included as
# system headers, so -Werror applies to the project's own code only.
add_library(velora_sdk_headers INTERFACE)
target_include_directories(velora_sdk_headers SYSTEM INTERFACE
  "${VST3_SDK_ROOT}"
  "${VST3_SDK_ROOT}/vstgui4")
