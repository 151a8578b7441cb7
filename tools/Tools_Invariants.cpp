// tw-invariants: what must hold of formatting on real code. Every file that
// parses, under every scheme asked for, must keep exactly its tokens, give
// the same bytes when formatted again, never crash and never hang; under
// "Leave as is" and under a scheme with no settings at all ("(no white
// space)") it must come out byte for byte. Prints a table per scheme and
// corpus (each PATH argument is a corpus) and lists each failing file with its
// first difference.
//
//   tw-invariants [OPTIONS] PATH...
//
// Exit status: 0 when every check held, 1 when any failed, 2 for a usage error.
#include "App_SchemeFile.h"
#include "App_SchemeStore.h"
#include "Tools_InvariantCheck.h"
#include "Tools_InvariantRunner.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <iostream>
#include <map>
#include <set>
#include <string>
#include <thread>
#include <tuple>
#include <vector>

#include <unistd.h>

namespace {

namespace fs = std::filesystem;

// The scheme with no property at all.
const char* const NO_WHITE_SPACE = "(no white space)";
// The built-in scheme that changes nothing.
const char* const LEAVE_AS_IS = "Leave as is";

const char* const USAGE = R"USAGE(usage: tw-invariants [OPTIONS] PATH...

Formats every C/C++ file under each PATH (a file or a directory, searched
recursively; each PATH is one corpus in the table) under each scheme and checks
that every file that parses keeps exactly its tokens, comes out the same when
formatted again, and neither crashes nor hangs the engine. Under "Leave as is"
and "(no white space)" (a scheme without any setting) the output must also be
the input, byte for byte.

Options:
  --scheme NAME         check under this built-in scheme, or "(no white space)";
                        may be repeated (default: every built-in scheme and
                        "(no white space)")
  --scheme-file PATH    check under the scheme in this .tws file; may be repeated
  --schemes-dir DIR     where the built-in schemes lie (default: beside the
                        program, else the source tree's schemes/)
  --timeout SECONDS     time limit per file and scheme (default 30)
  --jobs N              worker processes (default: one per processor)
  --max-listed N        failing files listed (default 100; 0 lists all)
  --simulate-fault KIND:TEXT
                        for testing this tool: misbehave on every file whose
                        text holds TEXT; KIND is hang, crash, throw, drop
                        (a token vanishes), unstable or unbrace (the first
                        braces behind TEXT vanish)
  -h, --help            show this text

In a directory, files ending in .c .cc .cpp .cxx .c++ .h .hh .hpp .hxx .h++
.inl .ipp .tcc .tpp and files without an extension (such as <vector>) are
checked; a file named MANIFEST is not.
)USAGE";

struct Options {
    std::vector<std::string> schemeNames;
    std::vector<std::string> schemeFiles;
    std::string schemesDir;
    double timeout = 30;
    int jobs = 0;
    std::size_t maxListed = 100;
    std::string faultKind;
    std::string faultText;
    std::vector<std::string> paths;
};

bool parseNumber(const std::string& text, double& out)
{
    try {
        std::size_t used = 0;
        out = std::stod(text, &used);
        return used == text.size() && out > 0;
    } catch (...) {
        return false;
    }
}

// 0 to go on, otherwise the exit status.
int parseArguments(int argc, char** argv, Options& options)
{
    const std::vector<std::string> args(argv + 1, argv + argc);
    for (std::size_t i = 0; i < args.size(); ++i) {
        const std::string& a = args[i];
        if (a == "-h" || a == "--help") {
            std::cout << USAGE;
            return -1;
        }
        const bool takesValue = a == "--scheme" || a == "--scheme-file" || a == "--schemes-dir" || a == "--timeout"
            || a == "--jobs" || a == "--max-listed" || a == "--simulate-fault";
        if (!takesValue) {
            if (a.size() > 1 && a[0] == '-') {
                std::cerr << "tw-invariants: unknown option " << a << "\n" << USAGE;
                return 2;
            }
            options.paths.push_back(a);
            continue;
        }
        if (i + 1 == args.size()) {
            std::cerr << "tw-invariants: " << a << " needs a value\n";
            return 2;
        }
        const std::string& value = args[++i];
        double number = 0;
        if (a == "--scheme") {
            options.schemeNames.push_back(value);
        } else if (a == "--scheme-file") {
            options.schemeFiles.push_back(value);
        } else if (a == "--schemes-dir") {
            options.schemesDir = value;
        } else if (a == "--simulate-fault") {
            const std::size_t colon = value.find(':');
            options.faultKind = value.substr(0, colon);
            options.faultText = colon == std::string::npos ? std::string() : value.substr(colon + 1);
            const std::set<std::string> kinds{"hang", "crash", "throw", "drop", "unstable", "unbrace"};
            if (!kinds.count(options.faultKind) || options.faultText.empty()) {
                std::cerr << "tw-invariants: --simulate-fault takes KIND:TEXT, KIND one of hang, crash, throw, "
                             "drop, unstable, unbrace\n";
                return 2;
            }
        } else if (a == "--max-listed" && value == "0") {
            options.maxListed = 0; // every failing file
        } else if (!parseNumber(value, number)) {
            std::cerr << "tw-invariants: " << a << " takes a positive number, not \"" << value << "\"\n";
            return 2;
        } else if (a == "--timeout") {
            options.timeout = number;
        } else if (a == "--jobs") {
            options.jobs = static_cast<int>(number);
        } else {
            options.maxListed = static_cast<std::size_t>(number);
        }
    }
    if (options.paths.empty()) {
        std::cerr << USAGE;
        return 2;
    }
    return 0;
}

bool isSourceName(const fs::path& path)
{
    static const std::set<std::string> extensions{".c",   ".cc",  ".cpp", ".cxx", ".c++", ".h",   ".hh",
                                                  ".hpp", ".hxx", ".h++", ".inl", ".ipp", ".tcc", ".tpp"};
    const std::string name = path.filename().string();
    if (name == "MANIFEST" || name.empty() || name[0] == '.')
        return false;
    return !path.has_extension() || extensions.count(path.extension().string()) > 0;
}

struct Corpus {
    std::string label;
    std::size_t files = 0;
};

// The files of every PATH, sorted within each; false on a path that does not exist.
bool collectFiles(const Options& options, std::vector<Corpus>& corpora, std::vector<std::string>& files,
                  std::vector<std::size_t>& corpusOf)
{
    for (const std::string& given : options.paths) {
        const fs::path root(given);
        std::error_code ec;
        // The corpus is named by the last part of its path: "/work/corpora/c/" is "c".
        fs::path absolute = fs::absolute(root, ec).lexically_normal();
        if (!absolute.has_filename())
            absolute = absolute.parent_path();
        Corpus corpus{absolute.filename().string(), 0};
        if (corpus.label.empty())
            corpus.label = given;
        std::vector<std::string> found;
        if (fs::is_regular_file(root, ec)) {
            found.push_back(given);
        } else if (fs::is_directory(root, ec)) {
            for (fs::recursive_directory_iterator it(root, ec), end; !ec && it != end; it.increment(ec))
                if (it->is_regular_file(ec) && isSourceName(it->path()))
                    found.push_back(it->path().string());
            if (ec) {
                std::cerr << "tw-invariants: " << given << ": " << ec.message() << "\n";
                return false;
            }
        } else {
            std::cerr << "tw-invariants: " << given << ": no such file or directory\n";
            return false;
        }
        std::sort(found.begin(), found.end());
        corpus.files = found.size();
        for (std::string& f : found) {
            files.push_back(std::move(f));
            corpusOf.push_back(corpora.size());
        }
        corpora.push_back(corpus);
    }
    return true;
}

bool builtInNames(const std::string& dir, std::vector<std::string>& names)
{
    std::error_code ec;
    for (fs::directory_iterator it(dir, ec), end; !ec && it != end; it.increment(ec))
        if (it->path().extension() == ".tws")
            names.push_back(it->path().stem().string());
    std::sort(names.begin(), names.end());
    return !ec;
}

bool loadSchemes(const Options& options, std::vector<Tools::SchemeUnderTest>& schemes)
{
    const std::string dir = options.schemesDir.empty() ? App::builtInSchemeDirectory() : options.schemesDir;
    std::vector<std::string> names = options.schemeNames;
    if (names.empty() && options.schemeFiles.empty()) {
        if (dir.empty() || !builtInNames(dir, names)) {
            std::cerr << "tw-invariants: no built-in scheme directory found; use --schemes-dir\n";
            return false;
        }
        names.push_back(NO_WHITE_SPACE);
    }
    for (const std::string& name : names) {
        Tools::SchemeUnderTest scheme;
        scheme.name = name;
        if (name == NO_WHITE_SPACE) {
            scheme.properties = Kempt::PropertySet(name);
            scheme.expectIdentical = true;
        } else {
            std::string error;
            if (!App::readSchemeFile((fs::path(dir) / (name + ".tws")).string(), scheme.properties, error)) {
                std::cerr << "tw-invariants: scheme \"" << name << "\": " << error << "\n";
                return false;
            }
            scheme.expectIdentical = name == LEAVE_AS_IS;
        }
        schemes.push_back(std::move(scheme));
    }
    for (const std::string& file : options.schemeFiles) {
        Tools::SchemeUnderTest scheme;
        std::string error;
        if (!App::readSchemeFile(file, scheme.properties, error)) {
            std::cerr << "tw-invariants: " << error << "\n";
            return false;
        }
        scheme.name = fs::path(file).stem().string();
        schemes.push_back(std::move(scheme));
    }
    return true;
}

// The first "{" behind `marker` and the first "}" behind that leave `output`,
// as a brace rewriter that took out braces it must keep would leave it.
void takeOutBraces(std::string& output, const std::string& marker)
{
    const std::size_t at = output.find(marker);
    const std::size_t open = at == std::string::npos ? at : output.find('{', at);
    if (open == std::string::npos)
        return;
    output.erase(open, 1);
    const std::size_t close = output.find('}', open);
    if (close != std::string::npos)
        output.erase(close, 1);
}

// The engine, or the engine made to misbehave on texts that hold `text`.
Tools::Formatter makeFormatter(const Options& options)
{
    if (options.faultKind.empty())
        return Tools::formatWithEngine;
    const std::string kind = options.faultKind;
    const std::string marker = options.faultText;
    return [kind, marker](const std::string& text, const Kempt::PropertySet& scheme) {
        Tools::FormatOutcome outcome = Tools::formatWithEngine(text, scheme);
        if (text.find(marker) == std::string::npos)
            return outcome;
        if (kind == "hang")
            for (;;)
                ::pause();
        if (kind == "crash")
            std::abort();
        if (kind == "throw")
            outcome.exception = "simulated fault";
        else if (kind == "drop")
            outcome.output.erase(outcome.output.find(marker), marker.size());
        else if (kind == "unstable")
            outcome.output += "\n";
        else if (kind == "unbrace") {
            takeOutBraces(outcome.output, marker);
            if (outcome.rewritten)
                takeOutBraces(outcome.rewrite.text, marker);
        }
        return outcome;
    };
}

struct Tally {
    std::size_t files = 0;
    std::size_t parsed = 0;
    std::size_t tokens = 0;
    std::size_t stable = 0;
    std::size_t identical = 0;
    std::size_t unparsed = 0; // parsed, but the output does not
    std::size_t pairings = 0; // brace styles: an else changed its if
    std::size_t crashes = 0;
    std::size_t hangs = 0;
};

struct Failure {
    std::size_t file;
    std::size_t scheme;
    std::string kind;
    std::string detail;
};

std::string kindOf(const Tools::Verdict& v)
{
    if (v.hung)
        return "hang";
    if (v.crashed)
        return "crash";
    if (!v.stillParses)
        return "unparsable";
    if (!v.tokensKept)
        return "tokens";
    if (!v.pairingKept)
        return "pairing";
    if (!v.identical)
        return "bytes";
    return "unstable";
}

std::string percent(std::size_t part, std::size_t whole)
{
    char buffer[16];
    std::snprintf(buffer, sizeof buffer, "%.1f%%", whole ? 100.0 * static_cast<double>(part) / static_cast<double>(whole) : 0.0);
    return buffer;
}

// Two decimals: the goal for brace styles is 99.9 %.
std::string stablePercent(std::size_t part, std::size_t whole)
{
    char buffer[16];
    std::snprintf(buffer, sizeof buffer, "%.2f%%",
                  whole ? 100.0 * static_cast<double>(part) / static_cast<double>(whole) : 0.0);
    return buffer;
}

void printTable(const std::vector<Tools::SchemeUnderTest>& schemes, const std::vector<Corpus>& corpora,
                const std::map<std::pair<std::size_t, std::size_t>, Tally>& tallies)
{
    std::size_t schemeWidth = 6;
    for (const auto& s : schemes)
        schemeWidth = std::max(schemeWidth, s.name.size());
    std::size_t corpusWidth = 6;
    for (const auto& c : corpora)
        corpusWidth = std::max(corpusWidth, c.label.size());
    std::printf("%-*s  %-*s  %7s  %7s  %7s  %15s  %7s  %7s  %14s  %10s  %8s  %7s  %5s\n",
                static_cast<int>(schemeWidth), "scheme", static_cast<int>(corpusWidth), "corpus", "files", "parsed",
                "parsed%", "token-identical", "stable", "stable%", "byte-identical", "unparsable", "pairing",
                "crashes", "hangs");
    for (std::size_t s = 0; s < schemes.size(); ++s)
        for (std::size_t c = 0; c < corpora.size(); ++c) {
            const auto found = tallies.find({s, c});
            const Tally t = found == tallies.end() ? Tally() : found->second;
            const std::string identical = schemes[s].expectIdentical ? std::to_string(t.identical) : "-";
            std::printf("%-*s  %-*s  %7zu  %7zu  %7s  %15zu  %7zu  %7s  %14s  %10zu  %8zu  %7zu  %5zu\n",
                        static_cast<int>(schemeWidth), schemes[s].name.c_str(), static_cast<int>(corpusWidth),
                        corpora[c].label.c_str(), t.files, t.parsed, percent(t.parsed, t.files).c_str(), t.tokens,
                        t.stable, stablePercent(t.stable, t.parsed).c_str(), identical.c_str(), t.unparsed,
                        t.pairings, t.crashes, t.hangs);
        }
}

} // namespace

int main(int argc, char** argv)
{
    Options options;
    if (const int status = parseArguments(argc, argv, options))
        return status < 0 ? 0 : status;
    std::vector<Corpus> corpora;
    std::vector<std::size_t> corpusOf;
    Tools::RunPlan plan;
    if (!collectFiles(options, corpora, plan.files, corpusOf) || !loadSchemes(options, plan.schemes))
        return 2;
    plan.format = makeFormatter(options);
    plan.timeoutSeconds = options.timeout;
    plan.jobs = options.jobs > 0 ? options.jobs : static_cast<int>(std::max(1u, std::thread::hardware_concurrency()));

    std::map<std::pair<std::size_t, std::size_t>, Tally> tallies; // (scheme, corpus)
    std::vector<Failure> failures;
    const auto started = std::chrono::steady_clock::now();
    std::string error;
    const bool ran = Tools::runPlan(
        plan,
        [&](std::size_t file, std::size_t scheme, const Tools::Verdict& v) {
            Tally& t = tallies[{scheme, corpusOf[file]}];
            ++t.files;
            t.parsed += v.parsed;
            t.tokens += v.parsed && v.tokensKept;
            t.stable += v.parsed && v.stable;
            t.identical += v.parsed && v.identical;
            t.unparsed += v.parsed && !v.stillParses;
            t.pairings += v.parsed && !v.pairingKept;
            t.crashes += v.crashed;
            t.hangs += v.hung;
            if (!v.passed())
                failures.push_back({file, scheme, kindOf(v), v.detail});
        },
        error);
    if (!ran) {
        std::cerr << "tw-invariants: " << error << "\n";
        return 2;
    }
    const double seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - started).count();

    printTable(plan.schemes, corpora, tallies);
    std::printf("\n%zu file(s) under %zu scheme(s) in %.1f s with %d worker(s)\n", plan.files.size(),
                plan.schemes.size(), seconds, plan.jobs);
    std::sort(failures.begin(), failures.end(), [](const Failure& a, const Failure& b) {
        return std::tie(a.scheme, a.file) < std::tie(b.scheme, b.file);
    });
    if (failures.empty()) {
        std::printf("no failures: every file that parses keeps its tokens and is stable\n");
        return 0;
    }
    std::printf("\n%zu failure(s):\n", failures.size());
    for (std::size_t i = 0; i < failures.size(); ++i) {
        if (options.maxListed != 0 && i == options.maxListed) {
            std::printf("... and %zu more (--max-listed 0 lists all)\n", failures.size() - i);
            break;
        }
        const Failure& f = failures[i];
        std::printf("%s: [%s] %s: %s\n", plan.files[f.file].c_str(), plan.schemes[f.scheme].name.c_str(),
                    f.kind.c_str(), f.detail.c_str());
    }
    return 1;
}
