// A line diff with visible white space: longest common subsequence of lines
// over the part between the common head and tail, printed in hunks.
#include "GoldenDiff.h"

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <vector>

namespace Golden {

namespace {

// Above this many cells, the middle part is shown as removed and added whole
// rather than matched line by line.
constexpr std::size_t MAX_TABLE_CELLS = 4'000'000;

struct Line {
    std::string_view text; // without "\n"
    bool hasBreak;
};

std::vector<Line> splitLines(std::string_view text)
{
    std::vector<Line> lines;
    std::size_t begin = 0;
    while (begin < text.size()) {
        const std::size_t end = text.find('\n', begin);
        if (end == std::string_view::npos) {
            lines.push_back({text.substr(begin), false});
            break;
        }
        lines.push_back({text.substr(begin, end - begin), true});
        begin = end + 1;
    }
    return lines;
}

bool sameLine(const Line& a, const Line& b)
{
    return a.text == b.text && a.hasBreak == b.hasBreak;
}

// One row of the diff: ' ' both, '-' expected only, '+' actual only.
struct Row {
    char kind;
    std::size_t expectedLine; // 0-based index into its text
    std::size_t actualLine;
};

// The rows of the middle part [eb, ee) x [ab, ae), by longest common subsequence.
void diffMiddle(const std::vector<Line>& e, const std::vector<Line>& a, std::size_t eb, std::size_t ee, std::size_t ab,
                std::size_t ae, std::vector<Row>& rows)
{
    const std::size_t n = ee - eb;
    const std::size_t m = ae - ab;
    if ((n + 1) * (m + 1) > MAX_TABLE_CELLS) {
        for (std::size_t i = eb; i < ee; ++i)
            rows.push_back({'-', i, 0});
        for (std::size_t j = ab; j < ae; ++j)
            rows.push_back({'+', 0, j});
        return;
    }
    // length[i][j]: common subsequence of e[eb+i..] and a[ab+j..].
    std::vector<std::vector<std::uint32_t>> length(n + 1, std::vector<std::uint32_t>(m + 1, 0));
    for (std::size_t i = n; i-- > 0;)
        for (std::size_t j = m; j-- > 0;)
            length[i][j] = sameLine(e[eb + i], a[ab + j]) ? length[i + 1][j + 1] + 1
                                                           : std::max(length[i + 1][j], length[i][j + 1]);
    std::size_t i = 0;
    std::size_t j = 0;
    while (i < n || j < m) {
        if (i < n && j < m && sameLine(e[eb + i], a[ab + j])) {
            rows.push_back({' ', eb + i++, ab + j++});
        } else if (j == m || (i < n && length[i + 1][j] >= length[i][j + 1])) {
            rows.push_back({'-', eb + i++, 0});
        } else {
            rows.push_back({'+', 0, ab + j++});
        }
    }
}

std::string number(std::size_t n)
{
    char buffer[16];
    std::snprintf(buffer, sizeof buffer, "%4zu", n);
    return buffer;
}

} // namespace

std::string visibleLine(std::string_view line, bool withBreak)
{
    std::string out;
    for (const char c : line) {
        const unsigned char u = static_cast<unsigned char>(c);
        if (c == '\t') {
            out += "^I";
        } else if (c == '\r') {
            out += "^M";
        } else if (u < 0x20) {
            out += '^';
            out += static_cast<char>(u + '@');
        } else if (u == 0x7f) {
            out += "^?";
        } else {
            out += c;
        }
    }
    if (withBreak)
        out += '$';
    return out;
}

std::string firstDifference(std::string_view expected, std::string_view actual)
{
    if (expected == actual)
        return std::string();
    std::size_t at = 0;
    while (at < expected.size() && at < actual.size() && expected[at] == actual[at])
        ++at;
    std::size_t line = 1;
    std::size_t lineStart = 0;
    for (std::size_t i = 0; i < at; ++i)
        if (expected[i] == '\n') {
            ++line;
            lineStart = i + 1;
        }
    return "line " + std::to_string(line) + ", column " + std::to_string(at - lineStart + 1);
}

std::string visibleDiff(std::string_view expected, std::string_view actual, int context)
{
    if (expected == actual)
        return std::string();
    const std::vector<Line> e = splitLines(expected);
    const std::vector<Line> a = splitLines(actual);
    // The common head and tail need no table.
    std::size_t head = 0;
    while (head < e.size() && head < a.size() && sameLine(e[head], a[head]))
        ++head;
    std::size_t tail = 0;
    while (tail < e.size() - head && tail < a.size() - head && sameLine(e[e.size() - 1 - tail], a[a.size() - 1 - tail]))
        ++tail;
    std::vector<Row> rows;
    for (std::size_t i = 0; i < head; ++i)
        rows.push_back({' ', i, i});
    diffMiddle(e, a, head, e.size() - tail, head, a.size() - tail, rows);
    for (std::size_t k = tail; k-- > 0;)
        rows.push_back({' ', e.size() - 1 - k, a.size() - 1 - k});

    // Rows to show: every change and `context` rows around it.
    const std::size_t reach = static_cast<std::size_t>(std::max(context, 0));
    std::vector<bool> shown(rows.size(), false);
    for (std::size_t r = 0; r < rows.size(); ++r)
        if (rows[r].kind != ' ')
            for (std::size_t k = r >= reach ? r - reach : 0; k < rows.size() && k <= r + reach; ++k)
                shown[k] = true;

    std::string out;
    for (std::size_t r = 0; r < rows.size(); ++r) {
        if (!shown[r])
            continue;
        const Row& row = rows[r];
        if (r == 0 || !shown[r - 1]) {
            // The first lines of the hunk in each text, counted from 1.
            std::size_t eLine = e.size() + 1;
            std::size_t aLine = a.size() + 1;
            for (std::size_t k = r; k < rows.size() && shown[k]; ++k) {
                if (rows[k].kind != '+')
                    eLine = std::min(eLine, rows[k].expectedLine + 1);
                if (rows[k].kind != '-')
                    aLine = std::min(aLine, rows[k].actualLine + 1);
            }
            out += "@@ expected line " + std::to_string(eLine) + ", actual line " + std::to_string(aLine) + " @@\n";
        }
        const std::string blank(4, ' ');
        const Line& line = row.kind == '+' ? a[row.actualLine] : e[row.expectedLine];
        out += row.kind;
        out += row.kind == '+' ? blank : number(row.expectedLine + 1);
        out += ' ';
        out += row.kind == '-' ? blank : number(row.actualLine + 1);
        out += "  " + visibleLine(line.text, line.hasBreak);
        if (!line.hasBreak)
            out += "  (no line break at the end)";
        out += '\n';
    }
    return out;
}

} // namespace Golden
