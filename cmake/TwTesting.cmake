# Test helpers: one GoogleTest executable per layer, each test registered with CTest.
find_package(GTest REQUIRED)
include(GoogleTest)

# tw_add_unit_test(NAME SOURCES ... LINKS ... [LABELS ...])
function(tw_add_unit_test name)
  cmake_parse_arguments(ARG "" "" "SOURCES;LINKS;LABELS" ${ARGN})
  add_executable(${name} ${ARG_SOURCES})
  target_link_libraries(${name} PRIVATE ${ARG_LINKS} GTest::gtest GTest::gtest_main Threads::Threads)
  tw_set_options(${name})
  set(labels unit ${ARG_LABELS})
  gtest_discover_tests(${name} DISCOVERY_TIMEOUT 60 PROPERTIES LABELS "${labels}")
endfunction()
find_package(Threads REQUIRED)

# tw_add_golden_tests(NAME SOURCES ... LINKS ...): the golden test runner.
# Its CTest tests are not fixed when CMake runs: each time ctest starts, it
# asks the runner for its cases (`NAME --list-cases`) and registers one test
# per case, label `golden`. A case added under tests/golden thus needs
# neither a CMake run nor a build.
set(TW_GOLDEN_DISCOVERY_SCRIPT "${CMAKE_CURRENT_LIST_DIR}/TwGoldenDiscovery.cmake")
function(tw_add_golden_tests name)
  cmake_parse_arguments(ARG "" "" "SOURCES;LINKS" ${ARGN})
  add_executable(${name} ${ARG_SOURCES})
  target_link_libraries(${name} PRIVATE ${ARG_LINKS} GTest::gtest Threads::Threads)
  tw_set_options(${name})
  set(include_file "${CMAKE_CURRENT_BINARY_DIR}/${name}_include.cmake")
  file(GENERATE OUTPUT "${include_file}" CONTENT
"set(TW_GOLDEN_EXECUTABLE [==[$<TARGET_FILE:${name}>]==])
set(TW_GOLDEN_TARGET [==[${name}]==])
include([==[${TW_GOLDEN_DISCOVERY_SCRIPT}]==])
")
  set_property(DIRECTORY APPEND PROPERTY TEST_INCLUDE_FILES "${include_file}")
endfunction()
