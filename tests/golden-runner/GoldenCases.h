// The cases of the golden tree as the runner program sees them, found once
// per process: the same list serves the GoogleTest instantiation, the case
// listing for CTest and tools/golden-update.
#ifndef GOLDENCASES_H
#define GOLDENCASES_H

#include "GoldenTree.h"

#include <iosfwd>
#include <string>
#include <vector>

namespace Golden {

// The cases under defaultRoots().golden, sorted by id.
const std::vector<Case>& allCases();
// Their GoogleTest parameter names, in the same order.
const std::vector<std::string>& allTestNames();

// The GoogleTest name of the tree test and the prefix of every case test.
inline constexpr const char* TREE_TEST = "GoldenTree.FollowsTheConvention";
inline constexpr const char* CASE_TEST_PREFIX = "Golden/GoldenCaseTest.Case/";

// One line per test for CTest: the GoogleTest full name, a blank, the CTest
// name ("golden-tree", "golden/<id>").
void listTests(std::ostream& out);

// Rewrites the expected files of the cases whose id contains `filter` (all
// when it is empty) from what the current build makes of their inputs, and
// reports each change to `out`. 0 when every case passes afterwards, 1 when
// some case still fails (it cannot be read, does not format, is not stable,
// or changes tokens) and needs a human.
int updateCases(const std::string& filter, std::ostream& out);

} // namespace Golden

#endif
