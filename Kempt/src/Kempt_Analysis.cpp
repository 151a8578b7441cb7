// Parsing a text and folding its fenced regions, outside a formatting run.
#include "Kempt_Analysis.h"

#include "Cpp_Lexer.h"
#include "Cpp_Parser.h"
#include "Cpp_RootNode.h"
#include "Kempt_ProtectedRangeScanner.h"
#include "Varnel_IMemBuf.h"

namespace Kempt {

bool analyseText(std::string_view text, const MarkerList& markers, Cpp::RootNode& root,
                 FormatMessageList& messages)
{
    FormatMessageList local;
    {
        Varnel::IMemStream in(text);
        Cpp::Lexer lexer(in);
        Cpp::Parser().parse(lexer, root, local);
    }
    local.remove_if([](const FormatMessage& m) { return m.code == 2; });
    if (!local.empty()) {
        messages.splice(messages.end(), local);
        return false;
    }
    ProtectedRangeScanner(markers).scan(text, root);
    return true;
}

} // namespace Kempt
