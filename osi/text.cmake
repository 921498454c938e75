# Text, numbers and units: the framework's string, reading and printing
# numbers with engineering suffixes, numeric text files, unit labels and
# value formats.
list(APPEND VELORA_OSI_SOURCES
  ${CMAKE_CURRENT_LIST_DIR}/string_ext.cpp
  ${CMAKE_CURRENT_LIST_DIR}/osiengineeringsuffix.cpp
  ${CMAKE_CURRENT_LIST_DIR}/osistringtonumber.cpp
  ${CMAKE_CURRENT_LIST_DIR}/osinumbertostring.cpp
  ${CMAKE_CURRENT_LIST_DIR}/osiparsenumber.cpp
  ${CMAKE_CURRENT_LIST_DIR}/ositextinputrange.cpp
  ${CMAKE_CURRENT_LIST_DIR}/ositextinput.cpp
  ${CMAKE_CURRENT_LIST_DIR}/osiunitlabel.cpp
  ${CMAKE_CURRENT_LIST_DIR}/osiunitlabellist.cpp
  ${CMAKE_CURRENT_LIST_DIR}/osicompositeunitlabel.cpp
  ${CMAKE_CURRENT_LIST_DIR}/osivalueformat.cpp
  ${CMAKE_CURRENT_LIST_DIR}/osilinearformat.cpp
  ${CMAKE_CURRENT_LIST_DIR}/osidecibelformat.cpp)
