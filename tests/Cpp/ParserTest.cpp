// The parser of this build reads every text to its end without a message.
#include "Cpp_Lexer.h"
#include "Cpp_Parser.h"
#include "Cpp_RootNode.h"

#include <gtest/gtest.h>

#include <sstream>

namespace {

TEST(ParserTest, AnyTextParsesIntoAnEmptyTreeWithoutMessages)
{
    for (const char* text : {"", "int main() { return 0; }", "}}} ((( 'x", "\x01\x02\xff"}) {
        std::istringstream in(text);
        Cpp::Lexer lexer(in);
        Cpp::RootNode root;
        Trn::FormatMessageList messages;
        Cpp::Parser().parse(lexer, root, messages);
        EXPECT_TRUE(root.empty()) << text;
        EXPECT_TRUE(messages.empty()) << text;
        EXPECT_EQ(lexer.next().type(), Cpp::END_OF_FILE) << "the whole text is read";
    }
}

TEST(ParserTest, KeepsMessagesItWasGiven)
{
    std::istringstream in("x");
    Cpp::Lexer lexer(in);
    Cpp::RootNode root;
    Trn::FormatMessageList messages{Trn::FormatMessage::coded(1, Trn::Position(1, 1))};
    Cpp::Parser().parse(lexer, root, messages);
    EXPECT_EQ(messages.size(), 1u);
}

} // namespace
