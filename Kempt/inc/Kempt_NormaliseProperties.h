// Completes a property set before a pass reads it, so that every pass finds
// the same defaults where a scheme leaves a value out: anchors -1, tab size 1,
// CONVERT_WS 0, EXPR_WRAP_STYLE 1, and one blank for the type-to-name gaps
// that must never close up. The formatter, the line wrapper and the
// expression formatter each run it first.
#ifndef KEMPT_NORMALISEPROPERTIES_H
#define KEMPT_NORMALISEPROPERTIES_H

#include "Kempt_PropertySet.h"

namespace Kempt {

void normaliseProperties(PropertySet& set);

} // namespace Kempt

#endif
