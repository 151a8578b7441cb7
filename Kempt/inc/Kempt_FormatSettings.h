// What one formatting run is given: the property set of the scheme, and the
// ordered list of comment marker pairs that fence regions the passes must
// leave alone ("TW-FORMAT-OFF" ... "TW-FORMAT-ON" and the others).
#ifndef KEMPT_FORMATSETTINGS_H
#define KEMPT_FORMATSETTINGS_H

#include "Kempt_PropertySet.h"

#include <string>
#include <utility>
#include <vector>

namespace Kempt {

// Begin marker, end marker.
using MarkerPair = std::pair<std::string, std::string>;
using MarkerList = std::vector<MarkerPair>;

// A copy of the default comment markers, built once on first use:
// "TW-FORMAT-OFF"/"TW-FORMAT-ON", "{{AFX"/"}}", "{{{AFX"/"}}}".
MarkerList defaultRegionMarkers();

// The identifier markers: "BEGIN_MESSAGE_MAP"/"END_MESSAGE_MAP".
const MarkerList& macroRegionMarkers();

class FormatSettings : public PropertySet {
public:
    FormatSettings();
    explicit FormatSettings(const PropertySet& properties, MarkerList markers = defaultRegionMarkers());

    const MarkerList& markers() const { return m_markers; }
    void setMarkers(MarkerList markers) { m_markers = std::move(markers); }

private:
    MarkerList m_markers;
};

} // namespace Kempt

#endif
