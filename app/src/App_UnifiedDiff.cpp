// Hunks of a unified diff over dtl's shortest edit script.
#include "App_UnifiedDiff.h"

#include <dtl/dtl.hpp>

#include <vector>

namespace App {

namespace {

constexpr const char* BOLD = "\x1b[1m";
constexpr const char* CYAN = "\x1b[36m";
constexpr const char* RED = "\x1b[31m";
constexpr const char* GREEN = "\x1b[32m";
constexpr const char* RESET = "\x1b[0m";

// Lines with their line ends; the last one may have none.
std::vector<std::string> splitLines(std::string_view text)
{
    std::vector<std::string> lines;
    std::size_t from = 0;
    while (from < text.size()) {
        std::size_t end = text.find('\n', from);
        end = end == std::string_view::npos ? text.size() : end + 1;
        lines.emplace_back(text.substr(from, end - from));
        from = end;
    }
    return lines;
}

enum class Op { KEEP, REMOVE, ADD };

struct Edit {
    Op op;
    const std::string* line;
};

using EditScript = std::vector<std::pair<std::string, dtl::elemInfo>>;

// The shortest edit script from `a` to `b`. Its lines are taken from the
// script itself, never through its line numbers: dtl restarts long scripts on
// the rest of both texts and then numbers them from the wrong origin.
EditScript editScript(const std::vector<std::string>& a, const std::vector<std::string>& b)
{
    dtl::Diff<std::string, std::vector<std::string>> diff(a, b);
    if (a.size() + b.size() > 100000)
        diff.onHuge();
    diff.compose();
    return diff.getSes().getSequence();
}

std::vector<Edit> toEdits(const EditScript& script)
{
    std::vector<Edit> out;
    out.reserve(script.size());
    for (const auto& [line, info] : script) {
        switch (info.type) {
        case dtl::SES_COMMON: out.push_back({Op::KEEP, &line}); break;
        case dtl::SES_DELETE: out.push_back({Op::REMOVE, &line}); break;
        default: out.push_back({Op::ADD, &line}); break;
        }
    }
    return out;
}

// "l,n" of a hunk head; a range of no lines names the line before it.
std::string range(std::size_t first, std::size_t count)
{
    return std::to_string(count == 0 ? first - 1 : first) + "," + std::to_string(count);
}

class Printer {
public:
    Printer(std::string& out, bool colour) : m_out(out), m_colour(colour) {}

    void header(const std::string& text) { plain(BOLD, text + "\n"); }
    void hunkHead(const std::string& text) { plain(CYAN, text + "\n"); }

    void line(char mark, const std::string& text)
    {
        const char* colour = mark == '-' ? RED : mark == '+' ? GREEN : nullptr;
        std::string body = text;
        std::string end;
        if (!body.empty() && body.back() == '\n') {
            body.pop_back();
            end = "\n";
            if (!body.empty() && body.back() == '\r' && colour && m_colour) {
                body.pop_back();
                end = "\r\n";
            }
        }
        if (colour && m_colour)
            m_out += colour;
        m_out += mark;
        m_out += body;
        if (colour && m_colour)
            m_out += RESET;
        m_out += end;
        if (end.empty())
            m_out += "\n\\ No newline at end of file\n";
    }

private:
    void plain(const char* colour, const std::string& text)
    {
        if (m_colour) {
            m_out += colour;
            m_out.append(text, 0, text.size() - 1);
            m_out += RESET;
            m_out += '\n';
        } else {
            m_out += text;
        }
    }

    std::string& m_out;
    bool m_colour;
};

// A file name for the diff's head: as it stands, or in C quotes when it holds
// a character that would end or split the name (patch reads both forms).
std::string headName(const std::string& path)
{
    bool plain = true;
    for (const char c : path)
        if (static_cast<unsigned char>(c) < 0x20 || c == '"' || c == '\\' || c == 0x7f)
            plain = false;
    if (plain)
        return path;
    std::string quoted = "\"";
    for (const char c : path) {
        switch (c) {
        case '"': quoted += "\\\""; break;
        case '\\': quoted += "\\\\"; break;
        case '\n': quoted += "\\n"; break;
        case '\t': quoted += "\\t"; break;
        case '\r': quoted += "\\r"; break;
        default:
            if (static_cast<unsigned char>(c) < 0x20 || c == 0x7f) {
                static const char* const OCTAL = "01234567";
                const auto u = static_cast<unsigned char>(c);
                quoted += '\\';
                quoted += OCTAL[u >> 6];
                quoted += OCTAL[(u >> 3) & 7];
                quoted += OCTAL[u & 7];
            } else {
                quoted += c;
            }
        }
    }
    return quoted + "\"";
}

} // namespace

std::string unifiedDiff(const std::string& path, std::string_view before, std::string_view after,
                        const DiffStyle& style)
{
    if (before == after)
        return "";
    const std::vector<std::string> a = splitLines(before);
    const std::vector<std::string> b = splitLines(after);
    const EditScript script = editScript(a, b);
    const std::vector<Edit> edits = toEdits(script);
    const std::size_t context = static_cast<std::size_t>(style.context < 0 ? 0 : style.context);

    std::string out;
    Printer print(out, style.colour);
    const std::string name = headName(path);
    print.header("--- " + name + "\t(original)");
    print.header("+++ " + name + "\t(formatted)");

    // Before-line and after-line numbers at each edit, from 1.
    std::vector<std::size_t> aLine(edits.size() + 1, 1);
    std::vector<std::size_t> bLine(edits.size() + 1, 1);
    for (std::size_t i = 0; i < edits.size(); ++i) {
        aLine[i + 1] = aLine[i] + (edits[i].op != Op::ADD ? 1 : 0);
        bLine[i + 1] = bLine[i] + (edits[i].op != Op::REMOVE ? 1 : 0);
    }
    std::size_t i = 0;
    while (i < edits.size()) {
        if (edits[i].op == Op::KEEP) {
            ++i;
            continue;
        }
        // A hunk: from `context` lines before this change to `context` lines
        // after the last change that lies within 2 * context lines of the one before.
        const std::size_t start = i >= context ? i - context : 0;
        std::size_t end = i;
        std::size_t keeps = 0;
        for (std::size_t j = i; j < edits.size(); ++j) {
            if (edits[j].op == Op::KEEP) {
                if (++keeps > 2 * context)
                    break;
            } else {
                keeps = 0;
                end = j + 1;
            }
        }
        const std::size_t stop = std::min(edits.size(), end + context);
        print.hunkHead("@@ -" + range(aLine[start], aLine[stop] - aLine[start]) + " +"
                       + range(bLine[start], bLine[stop] - bLine[start]) + " @@");
        for (std::size_t j = start; j < stop; ++j)
            print.line(edits[j].op == Op::KEEP ? ' ' : edits[j].op == Op::REMOVE ? '-' : '+', *edits[j].line);
        i = stop;
    }
    return out;
}

} // namespace App
