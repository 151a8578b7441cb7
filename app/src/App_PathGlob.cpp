// Matching exclusion patterns part by part: fnmatch(3) within a part, "**"
// across parts.
#include "App_PathGlob.h"

#include <fnmatch.h>

namespace App {

namespace {

// Does parts[p..] of the pattern match names[n..] of the path?
bool matchFrom(const std::vector<std::string>& parts, std::size_t p, const std::vector<std::string>& names,
               std::size_t n)
{
    if (p == parts.size())
        return n == names.size();
    if (parts[p] == "**") {
        // "**" takes none, one, two ... of the names.
        for (std::size_t skip = n; skip <= names.size(); ++skip)
            if (matchFrom(parts, p + 1, names, skip))
                return true;
        return false;
    }
    if (n == names.size())
        return false;
    if (::fnmatch(parts[p].c_str(), names[n].c_str(), 0) != 0)
        return false;
    return matchFrom(parts, p + 1, names, n + 1);
}

} // namespace

std::vector<std::string> pathParts(const std::string& relative)
{
    std::vector<std::string> parts;
    std::string part;
    auto finish = [&] {
        if (!part.empty() && part != ".")
            parts.push_back(part);
        part.clear();
    };
    for (const char c : relative) {
        if (c == '/')
            finish();
        else
            part += c;
    }
    finish();
    return parts;
}

PathGlob::PathGlob(const std::string& pattern) : m_pattern(pattern)
{
    std::string text = pattern;
    if (!text.empty() && text.back() == '/') {
        m_directoryOnly = true;
        while (!text.empty() && text.back() == '/')
            text.pop_back();
    }
    const bool anchored = text.find('/') != std::string::npos;
    m_parts = pathParts(text);
    // No "/": the name at any depth. A pattern with no part matches nothing.
    if (!anchored && !m_parts.empty())
        m_parts.insert(m_parts.begin(), "**");
}

bool PathGlob::matches(const std::string& relative, bool isDirectory) const
{
    if (m_directoryOnly && !isDirectory)
        return false;
    if (m_parts.empty())
        return false;
    return matchFrom(m_parts, 0, pathParts(relative), 0);
}

bool isExcluded(const std::vector<PathGlob>& globs, const std::string& relative)
{
    if (globs.empty())
        return false;
    const std::vector<std::string> parts = pathParts(relative);
    std::string prefix;
    for (std::size_t i = 0; i < parts.size(); ++i) {
        prefix += (i ? "/" : "") + parts[i];
        const bool directory = i + 1 < parts.size();
        for (const PathGlob& glob : globs)
            if (glob.matches(prefix, directory))
                return true;
    }
    return false;
}

} // namespace App
