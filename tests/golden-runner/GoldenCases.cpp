// The process-wide case list, the listing CTest reads, and golden-update.
#include "GoldenCases.h"

#include "GoldenRun.h"

#include <ostream>

namespace Golden {

namespace {

// Letters, digits and ".", "_", "+", "-", "/" pass; anything else, which the
// tree test reports anyway, becomes "_" so that CTest's script reads the name.
std::string ctestName(const std::string& id)
{
    std::string name = "golden/";
    for (const char c : id) {
        const bool plain = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '.'
            || c == '_' || c == '+' || c == '-' || c == '/';
        name += plain ? c : '_';
    }
    return name;
}

// What golden-update did with one case.
struct Tally {
    int written = 0;
    int removed = 0;
    int messages = 0;
    int unchanged = 0;
    int failing = 0;
};

void rewriteMessages(const Case& c, const LoadedCase& loaded, Tally& tally, std::ostream& out)
{
    const FormatRun run = formatText(loaded.input, loaded.scheme);
    if (!run.exception.empty()) {
        out << c.id << ": formatting threw: " << run.exception << "\n";
        ++tally.failing;
        return;
    }
    if (run.result == 0) {
        out << c.id << ": now formats; if that is right, delete " << c.fileWith(MESSAGES_SUFFIX).string()
            << " by hand\n";
        ++tally.failing;
        return;
    }
    const std::vector<std::string> lines = messageLines(run.messages);
    if (lines == loaded.expectedMessages) {
        ++tally.unchanged;
        return;
    }
    std::string text;
    for (const std::string& line : lines)
        text += line + "\n";
    if (!writeFile(c.fileWith(MESSAGES_SUFFIX), text)) {
        out << c.id << ": cannot write " << c.fileWith(MESSAGES_SUFFIX).string() << "\n";
        ++tally.failing;
        return;
    }
    out << c.id << ": rewrote " << c.slug << MESSAGES_SUFFIX << "\n";
    ++tally.messages;
}

// Writes the output as .out.cpp, or removes .out.cpp when the output is the input.
bool rewriteOutput(const Case& c, const LoadedCase& loaded, Tally& tally, std::ostream& out)
{
    const FormatRun run = formatText(loaded.input, loaded.scheme);
    if (!run.succeeded()) {
        out << c.id << ": does not format; left alone. For a case that must fail, create an empty "
            << c.slug << MESSAGES_SUFFIX << " and run again.\n"
            << run.explain();
        ++tally.failing;
        return false;
    }
    const fs::path file = c.fileWith(OUTPUT_SUFFIX);
    if (run.output == loaded.input) {
        if (!loaded.hasExpectedFile) {
            ++tally.unchanged;
            return true;
        }
        std::error_code ec;
        if (!fs::remove(file, ec)) {
            out << c.id << ": cannot remove " << file.string() << "\n";
            ++tally.failing;
            return false;
        }
        out << c.id << ": removed " << c.slug << OUTPUT_SUFFIX << " (the output equals the input)\n";
        ++tally.removed;
        return true;
    }
    if (loaded.hasExpectedFile && run.output == loaded.expected) {
        ++tally.unchanged;
        return true;
    }
    if (!writeFile(file, run.output)) {
        out << c.id << ": cannot write " << file.string() << "\n";
        ++tally.failing;
        return false;
    }
    out << c.id << ": wrote " << c.slug << OUTPUT_SUFFIX << "\n";
    ++tally.written;
    return true;
}

} // namespace

const std::vector<Case>& allCases()
{
    static const std::vector<Case> cases = findCases(defaultRoots().golden);
    return cases;
}

const std::vector<std::string>& allTestNames()
{
    static const std::vector<std::string> names = testNames(allCases());
    return names;
}

void listTests(std::ostream& out)
{
    out << TREE_TEST << " golden-tree\n";
    const std::vector<Case>& cases = allCases();
    const std::vector<std::string>& names = allTestNames();
    for (std::size_t i = 0; i < cases.size(); ++i)
        out << CASE_TEST_PREFIX << names[i] << ' ' << ctestName(cases[i].id) << '\n';
}

int updateCases(const std::string& filter, std::ostream& out)
{
    const Roots roots = defaultRoots();
    Tally tally;
    int matched = 0;
    for (const Case& c : allCases()) {
        if (c.id.find(filter) == std::string::npos)
            continue;
        ++matched;
        LoadedCase loaded;
        std::string error;
        if (!loadCase(roots, c, loaded, error)) {
            out << c.id << ": " << error << "\n";
            ++tally.failing;
            continue;
        }
        if (loaded.hasMessages) {
            rewriteMessages(c, loaded, tally, out);
            continue;
        }
        if (!rewriteOutput(c, loaded, tally, out))
            continue;
        // The new expectation must still pass the other checks: stable, same tokens.
        LoadedCase again;
        if (!loadCase(roots, c, again, error)) {
            out << c.id << ": " << error << "\n";
            ++tally.failing;
            continue;
        }
        const std::vector<std::string> failures = checkCase(again);
        for (const std::string& failure : failures)
            out << c.id << ": still fails: " << failure << "\n";
        tally.failing += failures.empty() ? 0 : 1;
    }
    out << matched << " case(s)";
    if (!filter.empty())
        out << " matching \"" << filter << "\"";
    out << ": " << tally.written << " .out.cpp written, " << tally.removed << " removed, " << tally.messages
        << " .messages rewritten, " << tally.unchanged << " unchanged, " << tally.failing << " need attention\n";
    if (tally.written + tally.removed + tally.messages > 0)
        out << "Review the changes with: git diff -- " << roots.golden.string() << "\n";
    return tally.failing == 0 ? 0 : 1;
}

} // namespace Golden
