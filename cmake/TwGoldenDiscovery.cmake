# Run by ctest, not by cmake: registers the golden runner's tests. The runner
# prints one line per test, "<GoogleTest name> <CTest name>"; each becomes a
# CTest test that runs the runner with a filter for just that test.
# Input: TW_GOLDEN_EXECUTABLE, TW_GOLDEN_TARGET.
if(NOT EXISTS "${TW_GOLDEN_EXECUTABLE}")
  add_test("${TW_GOLDEN_TARGET}_NOT_BUILT" "${TW_GOLDEN_TARGET}_NOT_BUILT")
  return()
endif()

execute_process(COMMAND "${TW_GOLDEN_EXECUTABLE}" --list-cases
  OUTPUT_VARIABLE tw_golden_listing
  ERROR_VARIABLE tw_golden_errors
  RESULT_VARIABLE tw_golden_status
  TIMEOUT 60)
if(NOT tw_golden_status EQUAL 0)
  # A test that fails and shows why the cases could not be listed.
  add_test(golden-discovery "${TW_GOLDEN_EXECUTABLE}" --list-cases)
  set_tests_properties(golden-discovery PROPERTIES LABELS golden)
  return()
endif()

string(REPLACE "\n" ";" tw_golden_lines "${tw_golden_listing}")
foreach(tw_golden_line IN LISTS tw_golden_lines)
  if(tw_golden_line MATCHES "^([^ ]+) ([^ ]+)$")
    add_test("${CMAKE_MATCH_2}" "${TW_GOLDEN_EXECUTABLE}" "--gtest_filter=${CMAKE_MATCH_1}")
    set_tests_properties("${CMAKE_MATCH_2}" PROPERTIES LABELS golden)
  endif()
endforeach()
