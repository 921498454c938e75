# Services: the socket transport, the program that starts a service and the
# service program's side.
list(APPEND VELORA_OSI_SOURCES
  ${CMAKE_CURRENT_LIST_DIR}/cosocket.cpp
  ${CMAKE_CURRENT_LIST_DIR}/coipcomms.cpp
  ${CMAKE_CURRENT_LIST_DIR}/coservice.cpp
  ${CMAKE_CURRENT_LIST_DIR}/coserviceprovider.cpp)
