// Which scheme options the engine's passes act on in this build. The passes
// are built construct by construct; an option whose construct is not laid out
// yet is read but changes nothing, and the construct comes out as it stands.
// The user's reference (docs/properties.md) and the scheme editor say so from
// here.
#ifndef KEMPT_PROPERTYEFFECT_H
#define KEMPT_PROPERTYEFFECT_H

#include <string_view>

namespace Kempt {

enum class PropertyEffect {
    IN_EFFECT, // a pass lays text out by it
    PARTLY,    // it acts in some places; effectNote() says where
    NOT_YET,   // the pass that will act on it is not built yet
    EDITOR,    // read by the scheme editor only (page flags)
};

PropertyEffect propertyEffect(std::string_view name);

// For PARTLY: where the option acts, in a few words; otherwise "".
std::string_view effectNote(std::string_view name);

} // namespace Kempt

#endif
