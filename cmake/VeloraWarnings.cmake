# Warnings are errors for the project's own code; the SDK keeps its own flags.
add_library(velora_warnings INTERFACE)
target_compile_options(velora_warnings INTERFACE -Wall -Wextra -Werror)
