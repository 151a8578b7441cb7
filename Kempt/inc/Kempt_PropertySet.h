// A named set of typed layout options: three ordered maps from name to bool,
// to integer and to string. This is what a scheme holds and what every pass
// reads. Names are ordered by plain byte comparison; a name may stand in more
// than one map, and each setter touches only its own map.
//
// Getters never validate and never throw: they return false for a missing name
// and leave the output alone. Setters and erase() validate the name first: an
// empty name or one holding white space throws Kempt::InvalidPropertyName.
//
// read() and write() use the scheme file form:
//   Kempt::PropertySet        magic text
//   1                         format version
//   "name"                    scheme name, not escaped
//   1 NAME 0|1                a flag
//   2 NAME -123               an integer
//   3 NAME "escaped text"     a string
#ifndef KEMPT_PROPERTYSET_H
#define KEMPT_PROPERTYSET_H

#include "Trn_Exception.h"

#include <cstdint>
#include <iosfwd>
#include <map>
#include <string>
#include <vector>

namespace Kempt {

class InvalidPropertyName : public Trn::Exception {
public:
    InvalidPropertyName();
};

class PropertySet {
public:
    static constexpr const char* MAGIC = "Kempt::PropertySet";
    static constexpr std::int32_t CURRENT_VERSION = 1;

    using BoolMap = std::map<std::string, bool>;
    using IntMap = std::map<std::string, std::int32_t>;
    using StringMap = std::map<std::string, std::string>;

    PropertySet() = default;
    explicit PropertySet(std::string name);
    // Empties itself, then reads; a failed read leaves it empty and the stream failed.
    explicit PropertySet(std::istream& in);
    PropertySet(const PropertySet&) = default;
    PropertySet(PropertySet&&) noexcept = default;
    PropertySet& operator=(const PropertySet& other);
    PropertySet& operator=(PropertySet&&) noexcept = default;
    ~PropertySet() = default;

    void swap(PropertySet& other) noexcept;

    const std::string& name() const { return m_name; }
    void setName(std::string name) { m_name = std::move(name); }
    std::int32_t version() const { return m_version; }

    std::size_t count() const;
    // Every boolean name, then every integer name, then every string name.
    std::vector<std::string> names() const;
    bool exists(const std::string& name) const;

    bool getBool(const std::string& name, bool& out) const;
    bool getInt(const std::string& name, std::int32_t& out) const;
    bool getString(const std::string& name, std::string& out) const;

    void setBool(const std::string& name, bool value);
    void setInt(const std::string& name, std::int32_t value);
    void setString(const std::string& name, const std::string& value);
    void setString(const std::string& name, const char* value);

    // Removes the name from the string map, else the integer map, else the
    // boolean map; true if something was removed.
    bool erase(const std::string& name);

    const BoolMap& bools() const { return m_bools; }
    const IntMap& ints() const { return m_ints; }
    const StringMap& strings() const { return m_strings; }

    // A failed read leaves the set unchanged and sets the stream's fail state.
    std::istream& read(std::istream& in);
    std::ostream& write(std::ostream& out) const;

    static void validateName(const std::string& name);

    friend bool operator==(const PropertySet&, const PropertySet&) = default;

private:
    std::string m_name;
    std::int32_t m_version = CURRENT_VERSION;
    BoolMap m_bools;
    IntMap m_ints;
    StringMap m_strings;
};

// The escapes of a string value in a scheme file: tab \t, newline \n, vertical
// tab \v, carriage return \r, " \", ' \', backslash \\.
std::string escapeSchemeString(const std::string& value);

} // namespace Kempt

#endif
