// The marker tables and the settings of a run.
#include "Kempt_FormatSettings.h"

namespace Kempt {

MarkerList defaultRegionMarkers()
{
    static const MarkerList MARKERS = {
        {"TW-FORMAT-OFF", "TW-FORMAT-ON"},
        {"{{AFX", "}}"},
        {"{{{AFX", "}}}"},
    };
    return MARKERS;
}

const MarkerList& macroRegionMarkers()
{
    static const MarkerList MARKERS = {{"BEGIN_MESSAGE_MAP", "END_MESSAGE_MAP"}};
    return MARKERS;
}

FormatSettings::FormatSettings() : m_markers(defaultRegionMarkers()) {}

FormatSettings::FormatSettings(const PropertySet& properties, MarkerList markers)
    : PropertySet(properties), m_markers(std::move(markers))
{
}

} // namespace Kempt
