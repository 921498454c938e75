# Compile flags of a sanitizer build (clang): every target of the tree runs
# under the sanitizer, and any report fails the test that triggered it.
if(VELORA_SANITIZE STREQUAL "address")
  set(velora_sanitize_flags -fsanitize=address,undefined -fno-sanitize-recover=all)
  # Coverage feedback for the fuzz targets from every library they reach, not
  # only from their own sources.
  add_compile_options(-fsanitize=fuzzer-no-link)
elseif(VELORA_SANITIZE STREQUAL "thread")
  set(velora_sanitize_flags -fsanitize=thread)
else()
  message(FATAL_ERROR "VELORA_SANITIZE must be empty, 'address' or 'thread'")
endif()
add_compile_options(${velora_sanitize_flags} -fno-omit-frame-pointer -g)
add_link_options(${velora_sanitize_flags})
