// One text through the engine, with its messages as lines.
#include "App_TextJob.h"

#include "App_MessageLine.h"
#include "Cpp_RootNode.h"
#include "Cpp_TreeDump.h"
#include "Kempt.h"

#include <ostream>
#include <sstream>

namespace App {

bool formatText(const std::string& label, std::istream& in, std::ostream& out, std::ostream& errors,
                const Kempt::PropertySet& properties, Kempt::UpdateFunctor& update, const FormatFunction& format)
{
    const Kempt::FormatSettings settings(properties, Kempt::defaultRegionMarkers());
    Kempt::FormatMessageList messages;
    const std::int32_t result = format(settings, in, out, messages, update);
    for (const Kempt::FormatMessage& message : messages)
        errors << messageLine(label, message) << '\n';
    return result == 0;
}

bool dumpTreeText(const std::string& label, std::istream& in, std::ostream& out, std::ostream& errors)
{
    std::ostringstream text;
    text << in.rdbuf();
    Cpp::RootNode root;
    Kempt::FormatMessageList messages;
    if (!Kempt::analyseText(text.view(), Kempt::defaultRegionMarkers(), root, messages)) {
        for (const Kempt::FormatMessage& message : messages)
            errors << messageLine(label, message) << '\n';
        return false;
    }
    Cpp::dumpTree(root, out);
    return true;
}

} // namespace App
