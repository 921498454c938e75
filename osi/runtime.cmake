# Framework runtime: platform layer (threads, locks, module loading),
# containers, class registry, modules and callbacks.
list(APPEND VELORA_OSI_SOURCES
  ${CMAKE_CURRENT_LIST_DIR}/osd/osdatomic.cpp
  ${CMAKE_CURRENT_LIST_DIR}/osd/osdsemaphore.cpp
  ${CMAKE_CURRENT_LIST_DIR}/osd/osdmutex.cpp
  ${CMAKE_CURRENT_LIST_DIR}/osd/osdthread.cpp
  ${CMAKE_CURRENT_LIST_DIR}/osd/osdmodule.cpp
  ${CMAKE_CURRENT_LIST_DIR}/colistnode.cpp
  ${CMAKE_CURRENT_LIST_DIR}/colist.cpp
  ${CMAKE_CURRENT_LIST_DIR}/cohashkey.cpp
  ${CMAKE_CURRENT_LIST_DIR}/cohashtable.cpp
  ${CMAKE_CURRENT_LIST_DIR}/cohashiter.cpp
  ${CMAKE_CURRENT_LIST_DIR}/mdlinterface.cpp
  ${CMAKE_CURRENT_LIST_DIR}/modregistry.cpp
  ${CMAKE_CURRENT_LIST_DIR}/protectedregistry.cpp
  ${CMAKE_CURRENT_LIST_DIR}/module.cpp
  ${CMAKE_CURRENT_LIST_DIR}/yieldhandler.cpp
  ${CMAKE_CURRENT_LIST_DIR}/cocallback.cpp
  ${CMAKE_CURRENT_LIST_DIR}/cofile.cpp)
