# The fitted cubic spline minimises with MINPACK's lmdif from cminpack; the
# spline saves itself in the structured file format.
find_package(PkgConfig REQUIRED)
pkg_check_modules(CMINPACK REQUIRED IMPORTED_TARGET GLOBAL cminpack)
# As needed: modules that link the framework without the fitted spline, such
# as the plug-in, do not come to depend on the shared library.
target_link_libraries(velora_osi
  PRIVATE "-Wl,--push-state,--as-needed" PkgConfig::CMINPACK "-Wl,--pop-state"
  PUBLIC velora_persist)
