// Formatting a golden case and judging the result.
#include "GoldenRun.h"

#include "GoldenDiff.h"
#include "Kempt.h"
#include "Varnel_Contract.h"

#include <sstream>

namespace Golden {

namespace {

std::string joinLines(const std::vector<std::string>& lines)
{
    std::string out;
    for (const std::string& line : lines)
        out += "    " + line + "\n";
    return out.empty() ? "    (none)\n" : out;
}

std::string bytesFailure(const std::string& what, const std::string& expected, const std::string& actual)
{
    return what + ": first difference at " + firstDifference(expected, actual)
        + " (^I tab, ^M carriage return, $ line break)\n" + visibleDiff(expected, actual);
}

std::string tokenFailure(const std::string& what, const std::string& before, const std::string& after,
                         const Kempt::PropertySet& scheme)
{
    const Kempt::FormatSettings settings(scheme, Kempt::defaultRegionMarkers());
    const Kempt::TokenComparison c = Kempt::compareFormatted(settings, before, after);
    if (c.same)
        return std::string();
    return what + ": line " + std::to_string(c.beforePosition.line) + ":" + std::to_string(c.beforePosition.col)
        + " -> line " + std::to_string(c.afterPosition.line) + ":" + std::to_string(c.afterPosition.col) + ": "
        + c.describe();
}

// A case with .messages: the text does not parse and stays as it was.
std::vector<std::string> checkFailingCase(const LoadedCase& loaded)
{
    std::vector<std::string> failures;
    const FormatRun run = formatText(loaded.input, loaded.scheme);
    if (!run.exception.empty()) {
        failures.push_back("formatting threw: " + run.exception);
        return failures;
    }
    if (run.result == 0) {
        failures.push_back("the text formatted, but the case expects it to fail with these messages:\n"
                           + joinLines(loaded.expectedMessages));
        return failures;
    }
    if (!run.output.empty())
        failures.push_back("a failed run wrote output; the text must stay as it was");
    const std::vector<std::string> actual = messageLines(run.messages);
    if (actual != loaded.expectedMessages)
        failures.push_back("messages differ\n  expected:\n" + joinLines(loaded.expectedMessages) + "  actual:\n"
                           + joinLines(actual));
    if (loaded.hasExpectedFile && loaded.expected != loaded.input)
        failures.push_back("a case with messages must have no .out.cpp that differs from its input");
    return failures;
}

} // namespace

std::string FormatRun::explain() const
{
    if (!exception.empty())
        return "    exception: " + exception + "\n";
    return joinLines(messageLines(messages));
}

FormatRun formatText(const std::string& text, const Kempt::PropertySet& scheme)
{
    FormatRun run;
    const Kempt::FormatSettings settings(scheme, Kempt::defaultRegionMarkers());
    std::istringstream in(text);
    std::ostringstream out;
    Kempt::UpdateFunctor noProgress;
    try {
        run.result = Kempt::FormatEngine().format(settings, in, out, run.messages, noProgress);
        run.output = std::move(out).str();
    } catch (const Varnel::ContractViolation& v) {
        run.exception = v.what();
    } catch (const Trn::Exception& e) {
        run.exception = e.what();
    } catch (const std::exception& e) {
        run.exception = e.what();
    }
    return run;
}

bool loadCase(const Roots& roots, const Case& c, LoadedCase& loaded, std::string& error)
{
    if (!readFile(c.input, loaded.input)) {
        error = c.input.string() + ": cannot be read";
        return false;
    }
    loaded.expected = loaded.input;
    if (const auto out = c.expected()) {
        loaded.hasExpectedFile = true;
        if (!readFile(*out, loaded.expected)) {
            error = out->string() + ": cannot be read";
            return false;
        }
    }
    if (const auto messages = c.messages()) {
        loaded.hasMessages = true;
        std::string text;
        if (!readFile(*messages, text)) {
            error = messages->string() + ": cannot be read";
            return false;
        }
        loaded.expectedMessages = parseMessageLines(text);
    }
    return schemeOf(roots, c, loaded.scheme, error);
}

std::vector<std::string> checkCase(const LoadedCase& loaded)
{
    if (loaded.hasMessages)
        return checkFailingCase(loaded);

    std::vector<std::string> failures;
    const FormatRun run = formatText(loaded.input, loaded.scheme);
    if (!run.succeeded()) {
        failures.push_back("the input did not format:\n" + run.explain());
        return failures;
    }
    // 1. Exact bytes.
    if (run.output != loaded.expected)
        failures.push_back(bytesFailure(loaded.hasExpectedFile ? "output differs from .out.cpp"
                                                               : "output differs from the input (no .out.cpp)",
                                        loaded.expected, run.output));
    // 2. Stability: the expected output is a fixed point.
    const FormatRun again = formatText(loaded.expected, loaded.scheme);
    if (!again.succeeded())
        failures.push_back("the expected output did not format:\n" + again.explain());
    else if (again.output != loaded.expected)
        failures.push_back(bytesFailure("not stable: formatting the expected output changed it", loaded.expected,
                                        again.output));
    // 3. Token preservation, of the expected output and of the actual one.
    if (std::string f = tokenFailure("the expected output changes tokens of the input", loaded.input,
                                     loaded.expected, loaded.scheme);
        !f.empty())
        failures.push_back(f);
    if (run.output != loaded.expected) {
        if (std::string f = tokenFailure("the output changes tokens of the input", loaded.input, run.output, loaded.scheme);
            !f.empty())
            failures.push_back(f);
    }
    return failures;
}

} // namespace Golden
