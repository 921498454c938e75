# Compile flags of a sanitizer build (clang): every target of the tree, the
# SDK's included, runs under the sanitizer, and any report fails the test
# that triggered it.
if(VELORA_SANITIZE STREQUAL "address")
  set(velora_sanitize_flags -fsanitize=address,undefined -fno-sanitize-recover=all)
elseif(VELORA_SANITIZE STREQUAL "thread")
  set(velora_sanitize_flags -fsanitize=thread)
else()
  message(FATAL_ERROR "VELORA_SANITIZE must be empty, 'address' or 'thread'")
endif()
add_compile_options(${velora_sanitize_flags} -fno-omit-frame-pointer -g)
add_link_options(${velora_sanitize_flags})

# For the project's own code, added after the SDK: coverage feedback for the
# fuzz targets from every library of ours they reach, not only from their own
# sources. The fuzz targets reach no SDK code.
macro(velora_sanitize_project_code)
  if(VELORA_SANITIZE STREQUAL "address")
    add_compile_options(-fsanitize=fuzzer-no-link)
  endif()
endmacro()
