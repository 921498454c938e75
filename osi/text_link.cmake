# Numeric text files are read through the typed file stream.
target_link_libraries(velora_osi PUBLIC velora_persist)
