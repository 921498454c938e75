# Test registration shared by every test folder.
#
# The main build compiles every test. A sanitizer build (VELORA_SANITIZE set
# to "address" for AddressSanitizer with UndefinedBehaviorSanitizer, or
# "thread") compiles only the tests that name it, and the fuzz targets go into
# the address build only.
find_package(GTest REQUIRED)
include(GoogleTest)

# velora_add_test(NAME SOURCES... [LIBS libs...] [SANITIZERS address|thread...]
#                 [DEPENDS targets...] [ENVIRONMENT VAR=value])
# A GoogleTest program whose cases CTest runs one by one, built after the
# DEPENDS targets that it runs (the bundle, a tool).
function(velora_add_test name)
  cmake_parse_arguments(ARG "" "" "LIBS;SANITIZERS;DEPENDS;ENVIRONMENT" ${ARGN})
  if(VELORA_SANITIZE AND NOT VELORA_SANITIZE IN_LIST ARG_SANITIZERS)
    return()
  endif()
  add_executable(${name} ${ARG_UNPARSED_ARGUMENTS})
  if(ARG_DEPENDS)
    add_dependencies(${name} ${ARG_DEPENDS})
  endif()
  target_link_libraries(${name} PRIVATE ${ARG_LIBS} GTest::gtest_main velora_warnings)
  target_include_directories(${name} PRIVATE "${PROJECT_SOURCE_DIR}/tests")
  # The discovery script splits list values: one variable at most here;
  # pass further values as compile definitions.
  gtest_discover_tests(${name} DISCOVERY_MODE PRE_TEST
    PROPERTIES ENVIRONMENT "${ARG_ENVIRONMENT}")
endfunction()

# velora_add_fuzzer(NAME SOURCES... [LIBS libs...] [SECONDS n] [SEEDS dir] [REPLAY])
# A libFuzzer target (address build only), with a bounded fuzz run as a CTest
# test. The run starts from the files in the SEEDS folder, if given. With
# REPLAY, the main build also runs the target's check once on every seed
# (NAME_replay), so that the seeds guard it as plain tests.
function(velora_add_fuzzer name)
  cmake_parse_arguments(ARG "REPLAY" "SECONDS;SEEDS" "LIBS" ${ARGN})
  if(ARG_REPLAY AND ARG_SEEDS AND NOT VELORA_SANITIZE)
    add_executable(${name}_replay ${ARG_UNPARSED_ARGUMENTS}
                   "${PROJECT_SOURCE_DIR}/tests/support/fuzz_replay.cpp")
    target_link_libraries(${name}_replay PRIVATE ${ARG_LIBS} velora_warnings)
    target_include_directories(${name}_replay PRIVATE "${PROJECT_SOURCE_DIR}/tests")
    add_test(NAME ${name}_replay COMMAND ${name}_replay "${ARG_SEEDS}")
  endif()
  if(NOT VELORA_SANITIZE STREQUAL "address")
    return()
  endif()
  if(NOT ARG_SECONDS)
    set(ARG_SECONDS 20)
  endif()
  add_executable(${name} ${ARG_UNPARSED_ARGUMENTS})
  target_compile_options(${name} PRIVATE -fsanitize=fuzzer)
  target_link_options(${name} PRIVATE -fsanitize=fuzzer)
  target_link_libraries(${name} PRIVATE ${ARG_LIBS} velora_warnings)
  target_include_directories(${name} PRIVATE "${PROJECT_SOURCE_DIR}/tests")
  set(corpus "${CMAKE_CURRENT_BINARY_DIR}/${name}_corpus")
  file(MAKE_DIRECTORY "${corpus}")
  add_test(NAME ${name}
    COMMAND ${name} -max_total_time=${ARG_SECONDS} -rss_limit_mb=2048 -print_final_stats=1
            "${corpus}" ${ARG_SEEDS})
endfunction()
