// Opt-in trace lines on std::clog.
#include "KemptUI_Trace.h"

#include <cstdlib>
#include <iostream>

namespace KemptUI {

bool TraceScope::requested()
{
    const char* value = std::getenv(TRACE_VARIABLE);
    return value && *value && std::string_view(value) != "0";
}

TraceScope::TraceScope(std::string_view name) : m_name(name), m_enabled(requested())
{
    if (m_enabled)
        std::clog << "[trace] > " << m_name << '\n';
}

TraceScope::~TraceScope()
{
    if (m_enabled)
        std::clog << "[trace] < " << m_name << '\n';
}

void TraceScope::line(std::string_view text) const
{
    if (m_enabled)
        std::clog << "[trace]   " << m_name << ": " << text << '\n';
}

} // namespace KemptUI
