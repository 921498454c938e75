# Thread pool and parallel loops.
list(APPEND VELORA_OSI_SOURCES
  ${CMAKE_CURRENT_LIST_DIR}/cothreadpool.cpp
  ${CMAKE_CURRENT_LIST_DIR}/coparallel.cpp)
