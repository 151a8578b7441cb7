// The invariants of one file under one scheme, for tw-invariants: the text is
// formatted, and when it parses, the output must hold exactly the input's
// tokens, formatting the output again must give the same bytes, and under a
// scheme that changes nothing the output must be the input. Under a scheme
// with a brace style set, the braces the rewriter adds or removes are the one
// token difference allowed, the output must still parse, and every `else`
// must stay with its `if` (the control shapes of input and output agree). An exception from
// the engine is caught and told; hangs and crashes are the caller's business
// (see Tools_InvariantRunner.h).
#ifndef TOOLS_INVARIANTCHECK_H
#define TOOLS_INVARIANTCHECK_H

#include "Kempt_BraceEdits.h"
#include "Kempt_FormatMessage.h"
#include "Kempt_PropertySet.h"

#include <cstdint>
#include <functional>
#include <string>

namespace Tools {

// One format call: result, output, messages; an exception's text in
// `exception`. Under a brace style, also the text of the brace rewrite alone
// and the braces it changed (`rewritten` false when there is none).
struct FormatOutcome {
    std::int32_t result = 0;
    std::string output;
    bool rewritten = false;
    Kempt::BraceRewrite rewrite;
    Kempt::FormatMessageList messages;
    std::string exception;
};

using Formatter = std::function<FormatOutcome(const std::string& text, const Kempt::PropertySet& scheme)>;

// The real pipeline: FormatEngine::format with the default region markers.
FormatOutcome formatWithEngine(const std::string& text, const Kempt::PropertySet& scheme);

// A scheme under which every file must come out byte for byte.
struct SchemeUnderTest {
    std::string name;
    Kempt::PropertySet properties;
    bool expectIdentical = false;
};

// What became of one file under one scheme. Checks that did not run (the file
// did not parse) count as passed; `detail` tells the first failure found.
struct Verdict {
    bool parsed = false;
    bool tokensKept = true;
    bool stable = true;
    bool identical = true;
    bool stillParses = true; // the output parses again
    bool pairingKept = true; // brace styles: the control statements kept their shape
    bool crashed = false; // an exception left the engine
    bool hung = false;    // set by the runner, never by checkFile
    std::string detail;

    bool passed() const { return !crashed && !hung && tokensKept && stable && identical && stillParses && pairingKept; }
};

Verdict checkFile(const std::string& text, const SchemeUnderTest& scheme, const Formatter& format);

// "line L, column C" of the first byte where two texts differ.
std::string firstDifference(const std::string& a, const std::string& b);

} // namespace Tools

#endif
