// Trace lines for following what the scheme store does: each operation opens a
// scope under its own name and writes lines such as "Found file default.tws".
// They are off unless the environment variable TIDEWRIGHT_TRACE is set to a
// value other than "" or "0"; then they go to std::clog (standard error). No
// user message ever travels this way.
#ifndef KEMPTUI_TRACE_H
#define KEMPTUI_TRACE_H

#include <string_view>

namespace KemptUI {

inline constexpr const char* TRACE_VARIABLE = "TIDEWRIGHT_TRACE";

// A scope of trace lines. Protocol: construct at the start of an operation,
// call line() for each event; the destructor closes the scope.
//   [trace] > PropertySetStore::read
//   [trace]   PropertySetStore::read: Found file default.tws
//   [trace] < PropertySetStore::read
class TraceScope {
public:
    explicit TraceScope(std::string_view name);
    ~TraceScope();
    TraceScope(const TraceScope&) = delete;
    TraceScope& operator=(const TraceScope&) = delete;

    void line(std::string_view text) const;
    bool enabled() const { return m_enabled; }

    // Whether TIDEWRIGHT_TRACE asks for trace lines now.
    static bool requested();

private:
    std::string_view m_name;
    bool m_enabled;
};

} // namespace KemptUI

#endif
