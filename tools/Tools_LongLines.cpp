// tw-long-lines: formats every C/C++ file under each PATH with a scheme that
// wraps lines, and counts the lines of the results that still pass the right
// margin, by cause: those no break point could shorten (a comment, a
// directive or a branch of a conditional the parser does not read, a long
// string literal, a run of names and member accesses) and
// those the wrapper could have broken. Lists the commonest shapes of the
// second kind, by their first tokens, and a few examples of each.
//
//   tw-long-lines --scheme-file FILE [--examples N] PATH...
//
// Exit status: 0, or 2 for a usage error.
#include "App_SchemeFile.h"
#include "Cpp_Lexer.h"
#include "Cpp_TokenType.h"
#include "Kempt.h"
#include "Kempt_ColumnArithmetic.h"
#include "Kempt_SourceText.h"
#include "Kempt_WrapFinders.h"
#include "Varnel_IMemBuf.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <map>
#include <sstream>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;

bool isSourceFile(const fs::path& p)
{
    static const std::vector<std::string> exts{".c", ".cc", ".cpp", ".cxx", ".c++", ".h", ".hh", ".hpp", ".hxx", ".inl", ".ipp", ".tcc"};
    std::string e = p.extension().string();
    std::transform(e.begin(), e.end(), e.begin(), [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return std::find(exts.begin(), exts.end(), e) != exts.end();
}

std::string readFile(const fs::path& p)
{
    std::ifstream in(p, std::ios::binary);
    std::ostringstream s;
    s << in.rdbuf();
    return s.str();
}

// A token kind for the shape of a line: keywords and punctuation by their
// text, names and literals by their class.
std::string kindOf(const Kempt::WrapToken& t, const std::string& text)
{
    switch (t.type) {
    case Cpp::IDENTIFIER: return "name";
    case Cpp::NUMBER_LITERAL:
    case Cpp::CHAR_LITERAL: return "number";
    case Cpp::STRING_LITERAL: return "string";
    case Cpp::LINE_COMMENT:
    case Cpp::BLOCK_COMMENT: return "comment";
    case Cpp::PREPROC_DIRECTIVE: return "directive";
    default: return text.substr(t.begin, std::min<std::size_t>(t.end - t.begin, 16));
    }
}

bool isBreakPoint(std::int32_t type)
{
    using namespace Kempt;
    return commaTokens().count(type) || logicalOperators().count(type) || binaryOperators().count(type) ||
           type == Cpp::SEMICOLON;
}

struct Counts {
    std::size_t files = 0;
    std::size_t failed = 0;
    std::size_t lines = 0;
    std::size_t comment = 0;
    std::size_t directive = 0;
    std::size_t string = 0;
    std::size_t chain = 0;
    std::size_t breakable = 0;
    std::map<std::string, std::size_t> shapes;
    std::map<std::string, std::vector<std::string>> examples;
};

// The tokens of `text` as the parser reads them: the #else and #elif
// branches of a conditional folded into one directive token, since they are
// never laid out as code.
std::vector<Kempt::WrapToken> foldedTokens(const std::string& text)
{
    std::vector<std::size_t> lineStarts{0};
    for (std::size_t i = 0; i < text.size(); ++i)
        if (text[i] == '\n')
            lineStarts.push_back(i + 1);
    const auto offsetOf = [&](const Trn::Position& p, bool exclusive) -> std::size_t {
        if (p.line < 1 || static_cast<std::size_t>(p.line) > lineStarts.size())
            return text.size();
        const std::size_t at =
            lineStarts[static_cast<std::size_t>(p.line) - 1] + static_cast<std::size_t>(p.col) - (exclusive ? 0 : 1);
        return std::min(at, text.size());
    };
    std::vector<Kempt::WrapToken> tokens;
    Varnel::IMemStream in(text);
    Cpp::Lexer lexer(in);
    lexer.setFoldingElseBranches(true);
    for (Trn::Token t = lexer.next(); t.type() != Cpp::END_OF_FILE; t = lexer.next()) {
        Kempt::WrapToken w;
        w.type = t.type();
        w.begin = offsetOf(t.start(), false);
        w.end = std::max(w.begin, offsetOf(t.end(), true));
        tokens.push_back(w);
    }
    return tokens;
}

void classify(const std::string& text, std::int32_t margin, std::int32_t tab, Counts& counts, std::size_t examples,
              const std::string& file)
{
    const std::vector<Kempt::WrapToken> tokens = foldedTokens(text);
    std::size_t lineStart = 0;
    std::size_t k = 0; // first token that ends after the line start
    std::int32_t lineNo = 0;
    while (lineStart < text.size()) {
        ++lineNo;
        std::size_t lineEnd = text.find('\n', lineStart);
        if (lineEnd == std::string::npos)
            lineEnd = text.size();
        const std::string_view line(text.data() + lineStart, lineEnd - lineStart);
        while (k < tokens.size() && tokens[k].end <= lineStart)
            ++k;
        if (Kempt::stringWidth(line, 0, tab) > margin) {
            ++counts.lines;
            // The tokens of this line; a token that began on an earlier line
            // comes first.
            std::vector<const Kempt::WrapToken*> own;
            for (std::size_t j = k; j < tokens.size() && tokens[j].begin < lineEnd; ++j)
                own.push_back(&tokens[j]);
            std::size_t codeEnd = lineEnd;
            bool directive = false;
            bool hasString = false;
            std::size_t breakPoints = 0;
            std::vector<Kempt::WrapToken> lineTokens;
            for (const Kempt::WrapToken* t : own)
                lineTokens.push_back(*t);
            std::vector<bool> angles;
            Kempt::bracketDepths(lineTokens, &angles);
            for (std::size_t n = 0; n < own.size(); ++n) {
                const Kempt::WrapToken* t = own[n];
                // "vector<int>": template brackets are no break points.
                if (angles[n] && t->begin >= lineStart)
                    continue;
                if (t->type == Cpp::PREPROC_DIRECTIVE)
                    directive = true;
                if ((t->type == Cpp::LINE_COMMENT || t->type == Cpp::BLOCK_COMMENT) && codeEnd == lineEnd)
                    codeEnd = std::max(t->begin, lineStart);
                if (t->type == Cpp::STRING_LITERAL)
                    hasString = true;
                if (t->begin >= lineStart && t != own.back() && isBreakPoint(t->type))
                    ++breakPoints;
            }
            const std::string_view code(text.data() + lineStart, codeEnd - lineStart);
            if (directive) {
                ++counts.directive;
            } else if (Kempt::stringWidth(code, 0, tab) <= margin) {
                ++counts.comment;
            } else if (breakPoints == 0 && hasString) {
                ++counts.string;
            } else if (breakPoints == 0) {
                ++counts.chain;
            } else {
                ++counts.breakable;
                std::string shape;
                std::size_t taken = 0;
                for (const Kempt::WrapToken* t : own) {
                    if (t->begin < lineStart || taken == 2)
                        continue;
                    shape += (taken ? " " : "") + kindOf(*t, text);
                    ++taken;
                }
                ++counts.shapes[shape];
                std::vector<std::string>& list = counts.examples[shape];
                if (list.size() < examples)
                    list.push_back(file + ":" + std::to_string(lineNo));
            }
        }
        lineStart = lineEnd + 1;
    }
}

void walk(const fs::path& root, const Kempt::FormatSettings& settings, std::int32_t margin, std::int32_t tab,
          Counts& counts, std::size_t examples)
{
    std::vector<fs::path> files;
    if (fs::is_regular_file(root)) {
        files.push_back(root);
    } else {
        std::error_code ec;
        for (fs::recursive_directory_iterator it(root, fs::directory_options::skip_permission_denied, ec), end;
             it != end; it.increment(ec)) {
            if (!ec && it->is_regular_file() && !it->is_symlink() && isSourceFile(it->path()))
                files.push_back(it->path());
        }
    }
    std::sort(files.begin(), files.end());
    const Kempt::FormatEngine engine;
    for (const fs::path& p : files) {
        std::istringstream in(readFile(p));
        std::ostringstream out;
        Kempt::FormatMessageList messages;
        Kempt::UpdateFunctor update;
        ++counts.files;
        if (engine.format(settings, in, out, messages, update) != 0) {
            ++counts.failed;
            continue;
        }
        classify(Kempt::normaliseLineBreaks(out.str()), margin, tab, counts, examples, p.string());
    }
}

} // namespace

int main(int argc, char** argv)
{
    std::string schemeFile;
    std::size_t examples = 3;
    std::vector<std::string> paths;
    for (int i = 1; i < argc; ++i) {
        const std::string a = argv[i];
        if (a == "--scheme-file" && i + 1 < argc)
            schemeFile = argv[++i];
        else if (a == "--examples" && i + 1 < argc)
            examples = static_cast<std::size_t>(std::stoul(argv[++i]));
        else if (!a.empty() && a[0] != '-')
            paths.push_back(a);
        else {
            std::cerr << "usage: tw-long-lines --scheme-file FILE [--examples N] PATH...\n";
            return 2;
        }
    }
    if (schemeFile.empty() || paths.empty()) {
        std::cerr << "usage: tw-long-lines --scheme-file FILE [--examples N] PATH...\n";
        return 2;
    }
    Kempt::PropertySet properties;
    std::string error;
    if (!App::readSchemeFile(schemeFile, properties, error)) {
        std::cerr << "tw-long-lines: " << error << "\n";
        return 2;
    }
    const Kempt::FormatSettings settings(properties);
    std::int32_t margin = 0;
    std::int32_t tab = 4;
    settings.getInt("RIGHT_MARGIN", margin);
    settings.getInt("TAB_SIZE", tab);
    tab = std::max(tab, 1);
    std::cout << "corpus\tfiles\tnot parsed\tlong lines\tcomment\tdirective\tlong string\tname chain\twrapper could "
                 "have broken\n";
    Counts all;
    for (const std::string& path : paths) {
        Counts c;
        walk(path, settings, margin, tab, c, examples);
        std::cout << fs::path(path).filename().string() << '\t' << c.files << '\t' << c.failed << '\t' << c.lines
                  << '\t' << c.comment << '\t' << c.directive << '\t' << c.string << '\t' << c.chain << '\t'
                  << c.breakable << '\n';
        for (const auto& [shape, n] : c.shapes) {
            all.shapes[shape] += n;
            for (const std::string& e : c.examples[shape])
                if (all.examples[shape].size() < examples)
                    all.examples[shape].push_back(e);
        }
    }
    std::vector<std::pair<std::size_t, std::string>> order;
    for (const auto& [shape, n] : all.shapes)
        order.emplace_back(n, shape);
    std::sort(order.rbegin(), order.rend());
    std::cout << "\ncommonest shapes the wrapper could have broken (first two tokens of the line):\n";
    for (std::size_t i = 0; i < order.size() && i < 15; ++i) {
        std::cout << order[i].first << "\t" << order[i].second << "\n";
        for (const std::string& e : all.examples[order[i].second])
            std::cout << "\t\t" << e << "\n";
    }
    return 0;
}
