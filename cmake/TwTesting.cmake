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
