# Numerics: cubic splines, fitted splines, the Fourier transform, random
# deviates and fractions.
list(APPEND VELORA_OSI_SOURCES
  ${CMAKE_CURRENT_LIST_DIR}/osisplinevector.cpp
  ${CMAKE_CURRENT_LIST_DIR}/osicubicsplineinterpolator.cpp
  ${CMAKE_CURRENT_LIST_DIR}/osicubicsplinefile.cpp
  ${CMAKE_CURRENT_LIST_DIR}/osifittedcubicspline.cpp
  ${CMAKE_CURRENT_LIST_DIR}/osipiecewiselinearfitter.cpp
  ${CMAKE_CURRENT_LIST_DIR}/osilevenbergmarquardt.cpp
  ${CMAKE_CURRENT_LIST_DIR}/osifourier.cpp
  ${CMAKE_CURRENT_LIST_DIR}/osiapproximatenormaldeviate.cpp
  ${CMAKE_CURRENT_LIST_DIR}/osifraction.cpp)

# The transform's results are fixed to the last bit: no fused multiply-adds.
set_source_files_properties(${CMAKE_CURRENT_LIST_DIR}/osifourier.cpp
  PROPERTIES COMPILE_OPTIONS -ffp-contract=off)
