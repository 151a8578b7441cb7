// Helpers for parser and tree tests: parse a text, dump the tree with the
// messages, and check that the tree's spans can be printed back without
// losing a token.
#ifndef TWTEST_PARSERTESTSUPPORT_H
#define TWTEST_PARSERTESTSUPPORT_H

#include "Cpp_Parser.h"
#include "Cpp_RootNode.h"
#include "Trn_FormatMessage.h"

#include <gtest/gtest.h>

#include <string>

namespace TwTest {

struct Parsed {
    Cpp::RootNode root;
    Trn::FormatMessageList messages;
};

// Parses `text` with a fresh parser.
void parseText(const std::string& text, Parsed& parsed);

// The tree dump of `text`, followed by one line per message:
// "! L:C code=N text". When the spans of the tree fail checkTree, a line
// "! spans: ..." says why.
std::string treeOf(const std::string& text);

// The messages of `text` only, one "L:C code=N text" line each.
std::string messagesOf(const std::string& text);

// The messages of `text` read by the core rules alone, all of them, in the
// form of messagesOf: what the core rules make of a text the extensions accept.
std::string coreMessagesOf(const std::string& text);

// The tree dump of `text` read with the extensions for real-world code from
// the start, as a text that the core rules refuse is read, in the form of
// treeOf. For tests of how an extension treats a construct that the core rules
// accept, which a whole text only meets when something else in it needs the
// extensions.
std::string extendedTreeOf(const std::string& text);

// The same with the later extensions on as well (attributes, braced values
// in conditions, requires clauses), as a text that every earlier reading
// refuses is read.
std::string laterTreeOf(const std::string& text);

// Checks that a pass walking the tree can print every token: each positioned
// node has begin <= end, begins at a token's start and ends at a token's end;
// a node with a range holds its children's ranges; and leaves and the
// delimiters of delimited lists come in text order without overlap, so every
// token lies wholly inside one of them or wholly in a gap between them. The
// children of an argument list, which no pass prints from, are left out of
// the order. Returns an empty string, or the first problem found.
std::string checkTree(Cpp::SyntaxNode& root, const std::string& text);

} // namespace TwTest

namespace Cpp {

// Reaches the parser's private routines, for tests.
class ParserTestAccess {
public:
    // parseClass on the tokens of `text`; its dump, or "null".
    static std::string classDump(const std::string& text);
    // Reads `text` by the core rules only, to its end, into `parsed`.
    static void readCore(const std::string& text, TwTest::Parsed& parsed);
    // Reads `text` with the extensions on, into `parsed`.
    static void readExtended(const std::string& text, TwTest::Parsed& parsed);
    // Reads `text` with the extensions and the later ones on, into `parsed`.
    static void readLater(const std::string& text, TwTest::Parsed& parsed);

private:
    static void readAs(const std::string& text, TwTest::Parsed& parsed, Parser::Reading reading);
};

} // namespace Cpp

// Compares the tree dump of `code` with `expected`, at the calling line.
#define EXPECT_TREE(code, expected) EXPECT_EQ(::TwTest::treeOf(code), expected)

#endif
