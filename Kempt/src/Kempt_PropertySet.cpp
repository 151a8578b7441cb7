// Property sets: access, validation, and the scheme file form.
#include "Kempt_PropertySet.h"

#include "Varnel_Text.h"

#include <algorithm>
#include <cctype>
#include <istream>
#include <ostream>
#include <sstream>

namespace Kempt {

InvalidPropertyName::InvalidPropertyName() : Trn::Exception("Invalid name for a Property.") {}

PropertySet::PropertySet(std::string name) : m_name(std::move(name)) {}

PropertySet::PropertySet(std::istream& in)
{
    read(in);
}

PropertySet& PropertySet::operator=(const PropertySet& other)
{
    if (this != &other) {
        PropertySet copy(other);
        swap(copy);
    }
    return *this;
}

void PropertySet::swap(PropertySet& other) noexcept
{
    m_name.swap(other.m_name);
    std::swap(m_version, other.m_version);
    m_bools.swap(other.m_bools);
    m_ints.swap(other.m_ints);
    m_strings.swap(other.m_strings);
}

std::size_t PropertySet::count() const
{
    return m_bools.size() + m_ints.size() + m_strings.size();
}

std::vector<std::string> PropertySet::names() const
{
    std::vector<std::string> all;
    all.reserve(count());
    for (const auto& [name, value] : m_bools)
        all.push_back(name);
    for (const auto& [name, value] : m_ints)
        all.push_back(name);
    for (const auto& [name, value] : m_strings)
        all.push_back(name);
    return all;
}

bool PropertySet::exists(const std::string& name) const
{
    return m_bools.count(name) || m_ints.count(name) || m_strings.count(name);
}

namespace {

template <typename Map, typename T>
bool lookUp(const Map& map, const std::string& name, T& out)
{
    const auto it = map.find(name);
    if (it == map.end())
        return false;
    out = it->second;
    return true;
}

} // namespace

bool PropertySet::getBool(const std::string& name, bool& out) const { return lookUp(m_bools, name, out); }
bool PropertySet::getInt(const std::string& name, std::int32_t& out) const { return lookUp(m_ints, name, out); }
bool PropertySet::getString(const std::string& name, std::string& out) const { return lookUp(m_strings, name, out); }

void PropertySet::validateName(const std::string& name)
{
    const bool bad = name.empty()
        || std::any_of(name.begin(), name.end(), [](char c) { return std::isspace(static_cast<unsigned char>(c)); });
    if (bad)
        throw InvalidPropertyName();
}

void PropertySet::setBool(const std::string& name, bool value)
{
    validateName(name);
    m_bools[name] = value;
}

void PropertySet::setInt(const std::string& name, std::int32_t value)
{
    validateName(name);
    m_ints[name] = value;
}

void PropertySet::setString(const std::string& name, const std::string& value)
{
    validateName(name);
    m_strings[name] = value;
}

void PropertySet::setString(const std::string& name, const char* value)
{
    setString(name, std::string(value ? value : ""));
}

bool PropertySet::erase(const std::string& name)
{
    validateName(name);
    return m_strings.erase(name) || m_ints.erase(name) || m_bools.erase(name);
}

// ---------------------------------------------------------------------------
// The scheme file form.

std::string escapeSchemeString(const std::string& value)
{
    std::string out;
    out.reserve(value.size() + 2);
    for (const char c : value) {
        switch (c) {
        case '\t': out += "\\t"; break;
        case '\n': out += "\\n"; break;
        case '\v': out += "\\v"; break;
        case '\r': out += "\\r"; break;
        case '"': out += "\\\""; break;
        case '\'': out += "\\'"; break;
        case '\\': out += "\\\\"; break;
        default: out += c; break;
        }
    }
    return out;
}

namespace {

// Reads the next line that is neither blank nor a "#" comment, trimmed. A read
// at the end of input that finds nothing leaves the stream at end of file
// without failure, and an empty line. When the stream is no longer good after
// the read, the line is given as it came, blank or not.
void nextSignificantLine(std::istream& in, std::string& line)
{
    for (;;) {
        std::string raw;
        std::getline(in, raw);
        if (in.fail() && !in.bad() && in.eof() && raw.empty()) {
            in.clear(std::ios_base::eofbit);
            line.clear();
            return;
        }
        line = std::string(Varnel::trim(raw));
        if (!in.good())
            return;
        if (!line.empty() && line[0] != '#')
            return;
    }
}

// Removes one pair of double quotes around a text, if it has them.
std::string unquote(std::string text)
{
    if (text.size() >= 2 && text.front() == '"' && text.back() == '"')
        return text.substr(1, text.size() - 2);
    return text;
}

// The value of a string property: a quoted text up to the next unescaped
// quote, backslash pairs copied whole, or one blank-delimited word. False when
// there is nothing to take.
bool readStringValue(std::istream& line, std::string& value)
{
    line >> std::ws;
    std::string token;
    if (line.peek() == '"') {
        token += static_cast<char>(line.get());
        for (int c = line.get(); c != std::char_traits<char>::eof(); c = line.get()) {
            token += static_cast<char>(c);
            if (c == '\\') {
                const int next = line.get();
                if (next == std::char_traits<char>::eof())
                    break;
                token += static_cast<char>(next);
            } else if (c == '"') {
                break;
            }
        }
    } else if (!(line >> token)) {
        return false;
    }
    value = unquote(Varnel::unescapeBackslashes(token));
    return true;
}

// One property line into the working set. A tag outside 1..3 fails the
// stream `in`; a value that does not parse only skips the line.
void readPropertyLine(const std::string& text, std::istream& in, PropertySet& set)
{
    std::istringstream line(text);
    int tag = 0;
    std::string name;
    line >> tag;
    if (!line || tag < 1 || tag > 3) {
        in.setstate(std::ios_base::failbit);
        return;
    }
    if (!(line >> name))
        return;
    if (tag == 1) {
        bool value = false;
        if (line >> value)
            set.setBool(name, value);
    } else if (tag == 2) {
        std::int32_t value = 0;
        if (line >> value)
            set.setInt(name, value);
    } else {
        std::string value;
        if (readStringValue(line, value))
            set.setString(name, value);
    }
}

} // namespace

std::istream& PropertySet::read(std::istream& in)
{
    std::string line;

    // 1. The magic text.
    nextSignificantLine(in, line);
    if (line != MAGIC) {
        in.setstate(std::ios_base::failbit);
        return in;
    }

    // 2. The format version, 1 <= version < 2.
    nextSignificantLine(in, line);
    std::istringstream versionText(line);
    std::int32_t version = 0;
    if (!(versionText >> version) || version < 1 || version >= 2) {
        in.setstate(std::ios_base::failbit);
        return in;
    }
    PropertySet working("temp");
    working.m_version = version;

    // 3. The name, with its quotes removed.
    nextSignificantLine(in, line);
    working.m_name = unquote(line);

    // 4. Properties until the stream is no longer good. The test comes before
    //    the line is parsed, so a last line without a newline is dropped.
    for (;;) {
        nextSignificantLine(in, line);
        if (!in.good()) {
            if (in.eof() && !in.fail() && !in.bad())
                swap(working);
            return in;
        }
        readPropertyLine(line, in, working);
    }
}

std::ostream& PropertySet::write(std::ostream& out) const
{
    out << MAGIC << '\n' << m_version << '\n' << '"' << m_name << '"' << '\n';
    for (const auto& [name, value] : m_bools)
        out << "1 " << name << ' ' << (value ? 1 : 0) << '\n';
    for (const auto& [name, value] : m_ints)
        out << "2 " << name << ' ' << value << '\n';
    for (const auto& [name, value] : m_strings)
        out << "3 " << name << " \"" << escapeSchemeString(value) << "\"\n";
    return out;
}

} // namespace Kempt
