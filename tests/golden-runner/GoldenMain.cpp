// The golden test runner's entry point.
//
//   tw_golden_tests [GoogleTest options]   run the cases (and the tree test)
//   tw_golden_tests --list-cases           one line per test for CTest's discovery
//   tw_golden_tests --update [FILTER]      rewrite expected files (tools/golden-update)
//
// TW_GOLDEN_DIR and TW_SCHEMES_DIR in the environment replace the tree and
// the built-in scheme directory compiled in.
#include "GoldenCases.h"

#include <gtest/gtest.h>

#include <iostream>
#include <string>

int main(int argc, char** argv)
{
    const std::string first = argc > 1 ? argv[1] : "";
    if (first == "--list-cases" && argc == 2) {
        Golden::listTests(std::cout);
        return 0;
    }
    if (first == "--update" && argc <= 3)
        return Golden::updateCases(argc == 3 ? argv[2] : "", std::cout);
    if (first == "--update" || first == "--list-cases") {
        std::cerr << "usage: " << argv[0] << " --list-cases | --update [FILTER] | [GoogleTest options]\n";
        return 2;
    }
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
