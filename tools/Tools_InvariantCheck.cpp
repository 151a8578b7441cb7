// Formatting one file and checking what must hold of the result.
#include "Tools_InvariantCheck.h"

#include "Cpp_RootNode.h"
#include "Kempt.h"
#include "Tools_ControlShape.h"
#include "Varnel_Contract.h"

#include <sstream>

namespace Tools {

namespace {

bool rewritesBraces(const Kempt::PropertySet& scheme)
{
    for (const char* name : {Kempt::Prop::IF_ELSE_CS_SINGLE_STMT_BRACE_STYLE, Kempt::Prop::FOR_CS_SINGLE_STMT_BRACE_STYLE,
                             Kempt::Prop::WHILE_CS_SINGLE_STMT_BRACE_STYLE}) {
        std::int32_t style = 0;
        if (scheme.getInt(name, style) && style != 0)
            return true;
    }
    return false;
}

std::size_t firstDifferentCharacter(const std::string& a, const std::string& b)
{
    std::size_t at = 0;
    while (at < a.size() && at < b.size() && a[at] == b[at])
        ++at;
    return at;
}

std::string firstMessage(const Kempt::FormatMessageList& messages)
{
    if (messages.empty())
        return "no message";
    const Kempt::FormatMessage& m = messages.front();
    return "line " + std::to_string(m.position.line) + ":" + std::to_string(m.position.col) + ": " + m.text;
}

// The control shape of a text, or false when it does not parse.
bool shapeOfText(const std::string& text, std::string& shape)
{
    Cpp::RootNode root;
    Kempt::FormatMessageList messages;
    if (!Kempt::analyseText(text, Kempt::defaultRegionMarkers(), root, messages))
        return false;
    shape = controlShape(root);
    return true;
}

// Under a brace style: the text the brace rewriter made of `text` still
// parses, every `else` kept its `if`, and the statements their bodies; the
// braces round single statements aside. The rewritten text is compared, not
// the output: what the formatter does to the parser's view of a text is the
// same under any scheme, and no business of the braces.
void checkPairing(const std::string& text, const std::string& rewritten, Verdict& verdict)
{
    std::string before;
    std::string after;
    if (!shapeOfText(text, before))
        return; // the engine parsed it; the tree dump's parse agrees
    if (!shapeOfText(rewritten, after)) {
        verdict.stillParses = false;
        if (verdict.detail.empty())
            verdict.detail = "the rewritten text does not parse";
        return;
    }
    if (before != after) {
        verdict.pairingKept = false;
        if (verdict.detail.empty())
            verdict.detail = "control statements changed their shape (an else changed its if?) at character "
                + std::to_string(firstDifferentCharacter(before, after)) + " of the shape";
    }
}

} // namespace

FormatOutcome formatWithEngine(const std::string& text, const Kempt::PropertySet& scheme)
{
    FormatOutcome outcome;
    const Kempt::FormatSettings settings(scheme, Kempt::defaultRegionMarkers());
    if (rewritesBraces(scheme)) {
        Kempt::FormatMessageList messages;
        try {
            outcome.rewritten = Kempt::FormatEngine().rewriteBraces(settings, text, outcome.rewrite, messages) == 0;
        } catch (const Varnel::ContractViolation& v) {
            outcome.exception = v.what();
            return outcome;
        } catch (const Trn::Exception& e) {
            outcome.exception = e.what();
            return outcome;
        }
    }
    std::istringstream in(text);
    std::ostringstream out;
    Kempt::UpdateFunctor noProgress;
    try {
        outcome.result = Kempt::FormatEngine().format(settings, in, out, outcome.messages, noProgress);
        outcome.output = std::move(out).str();
    } catch (const Varnel::ContractViolation& v) {
        outcome.exception = v.what();
    } catch (const Trn::Exception& e) {
        outcome.exception = e.what();
    } catch (const std::exception& e) {
        outcome.exception = e.what();
    }
    return outcome;
}

std::string firstDifference(const std::string& a, const std::string& b)
{
    std::size_t at = 0;
    while (at < a.size() && at < b.size() && a[at] == b[at])
        ++at;
    std::size_t line = 1;
    std::size_t lineStart = 0;
    for (std::size_t i = 0; i < at; ++i)
        if (a[i] == '\n') {
            ++line;
            lineStart = i + 1;
        }
    return "line " + std::to_string(line) + ", column " + std::to_string(at - lineStart + 1);
}

Verdict checkFile(const std::string& text, const SchemeUnderTest& scheme, const Formatter& format)
{
    Verdict verdict;
    const FormatOutcome first = format(text, scheme.properties);
    if (!first.exception.empty()) {
        verdict.crashed = true;
        verdict.detail = "exception: " + first.exception;
        return verdict;
    }
    const bool braces = rewritesBraces(scheme.properties);
    if (first.result != 0) {
        // A text that parses but whose rewrite does not: the rewriter broke it.
        std::string shape;
        if (braces && shapeOfText(text, shape)) {
            verdict.parsed = true;
            verdict.stillParses = false;
            verdict.detail = "the rewritten text does not parse: " + firstMessage(first.messages);
        }
        return verdict;
    }
    verdict.parsed = true;

    // (a) Exactly the input's tokens, in order; under a brace style, but for
    //     exactly the braces the rewriter reports.
    const Kempt::TokenComparison tokens = braces && first.rewritten
        ? Kempt::compareTokens(text, first.rewrite, first.output)
        : Kempt::compareTokens(text, first.output);
    if (!tokens.same) {
        verdict.tokensKept = false;
        verdict.detail = "line " + std::to_string(tokens.beforePosition.line) + ":"
            + std::to_string(tokens.beforePosition.col) + ": " + tokens.describe();
    }
    if (braces && first.rewritten)
        checkPairing(text, first.rewrite.text, verdict);
    // Byte for byte, under a scheme that changes nothing.
    if (scheme.expectIdentical && first.output != text) {
        verdict.identical = false;
        if (verdict.detail.empty())
            verdict.detail = "output differs from the input at " + firstDifference(text, first.output);
    }
    // (b) Formatting the output again gives the same bytes.
    const FormatOutcome second = format(first.output, scheme.properties);
    if (!second.exception.empty()) {
        verdict.crashed = true;
        verdict.detail = "exception on the second run: " + second.exception;
    } else if (second.result != 0) {
        verdict.stable = false;
        verdict.stillParses = false;
        if (verdict.detail.empty())
            verdict.detail = "the output does not parse: " + firstMessage(second.messages);
    } else if (second.output != first.output) {
        verdict.stable = false;
        if (verdict.detail.empty())
            verdict.detail = "not stable: a second run changes " + firstDifference(first.output, second.output);
    }
    return verdict;
}

} // namespace Tools
