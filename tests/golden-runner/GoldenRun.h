// One golden case through the pipeline: the text formatted under the case's
// scheme, as the command line would, with any exception caught and told.
// The checks that a case must pass are made here too, as lists of failures,
// so that the test runner and tools/golden-update judge a case alike.
#ifndef GOLDENRUN_H
#define GOLDENRUN_H

#include "GoldenTree.h"
#include "Kempt_FormatMessage.h"
#include "Kempt_PropertySet.h"

#include <cstdint>
#include <string>
#include <vector>

namespace Golden {

struct FormatRun {
    std::int32_t result = 0;
    std::string output;
    Kempt::FormatMessageList messages;
    std::string exception; // what an exception said; empty when none was thrown

    bool succeeded() const { return exception.empty() && result == 0; }
    // The messages or the exception, one per line, for a failure report.
    std::string explain() const;
};

// Formats `text` with `scheme` and the default region markers.
FormatRun formatText(const std::string& text, const Kempt::PropertySet& scheme);

// Everything a case is checked with, read from its files.
struct LoadedCase {
    std::string input;
    std::string expected;                               // .out.cpp, or the input
    bool hasExpectedFile = false;
    bool hasMessages = false;
    std::vector<std::string> expectedMessages;          // .messages lines
    Kempt::PropertySet scheme;
};

// False and `error` when a file of the case cannot be read or its scheme not built.
bool loadCase(const Roots& roots, const Case& c, LoadedCase& loaded, std::string& error);

// The checks of a case, each failure a paragraph of text:
//  1. the output is exactly the expected bytes (with a visible diff);
//  2. formatting the expected output again changes nothing;
//  3. input, expected output and actual output hold the same tokens (braces
//     left out when the scheme rewrites them);
//  4. with .messages: the run fails with exactly those messages and writes
//     nothing, so that the file stays as it was.
std::vector<std::string> checkCase(const LoadedCase& loaded);

} // namespace Golden

#endif
