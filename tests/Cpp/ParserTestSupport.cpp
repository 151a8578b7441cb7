// Parsing, dumping and span checks for the parser tests.
#include "ParserTestSupport.h"

#include "Cpp_Lexer.h"
#include "Cpp_Nodes.h"
#include "Cpp_Parser.h"
#include "Cpp_TreeDump.h"
#include "Trn_TokenStream.h"
#include "Varnel_IMemBuf.h"

#include <memory>

#include <set>
#include <sstream>
#include <typeinfo>

namespace TwTest {

namespace {

std::string place(const Trn::Position& p)
{
    return std::to_string(p.line) + ":" + std::to_string(p.col);
}

std::string messageLines(const Trn::FormatMessageList& messages, const char* prefix)
{
    std::string lines;
    for (const Trn::FormatMessage& m : messages)
        lines += prefix + place(m.position) + " code=" + std::to_string(m.code) + " " + m.text + "\n";
    return lines;
}

class SpanChecker {
public:
    explicit SpanChecker(const std::string& text)
    {
        Varnel::IMemStream in(text);
        Cpp::Lexer lexer(in);
        for (Trn::Token t = lexer.next(); t.type() != Cpp::END_OF_FILE; t = lexer.next()) {
            m_starts.insert(t.start());
            m_ends.insert(t.end());
        }
    }

    std::string check(Cpp::SyntaxNode& node, bool ordered)
    {
        const Trn::Position begin = node.begin();
        const Trn::Position end = node.end();
        const std::string name = Cpp::describeNode(node);
        const bool positioned = !begin.isNull() || !end.isNull();
        if (positioned) {
            if (end < begin)
                return name + ": ends before it begins";
            if (!m_starts.count(begin))
                return name + ": does not begin at a token";
            if (!m_ends.count(end))
                return name + ": does not end at a token";
        }
        const auto children = Cpp::childrenOf(node);
        const bool isLeaf = dynamic_cast<Cpp::LeafNode*>(&node) != nullptr;
        const bool delimited = dynamic_cast<Cpp::DelimitedNode*>(&node) != nullptr;
        const bool braced = delimited && positioned && !(children.size() && children.front()->begin() == begin);
        if (isLeaf && positioned && ordered) {
            if (std::string problem = mark(begin, end, name); !problem.empty())
                return problem;
        }
        if (braced && ordered)
            if (std::string problem = mark(begin, begin, name + " (opening)"); !problem.empty())
                return problem;
        const bool childrenOrdered = ordered && dynamic_cast<Cpp::ArgListNode*>(&node) == nullptr;
        for (Cpp::SyntaxNode* child : children) {
            if (positioned && !child->begin().isNull() && (child->begin() < begin || end < child->end()))
                return Cpp::describeNode(*child) + ": lies outside its parent " + name;
            if (std::string problem = check(*child, childrenOrdered); !problem.empty())
                return problem;
        }
        if (braced && ordered && end != begin)
            if (std::string problem = mark(end, end, name + " (closing)"); !problem.empty())
                return problem;
        return std::string();
    }

private:
    std::string mark(const Trn::Position& begin, const Trn::Position& end, const std::string& name)
    {
        if (!m_last.isNull() && !(m_last < begin))
            return name + ": overlaps or precedes " + m_lastName;
        m_last = end;
        m_lastName = name;
        return std::string();
    }

    std::set<Trn::Position> m_starts;
    std::set<Trn::Position> m_ends;
    Trn::Position m_last;
    std::string m_lastName;
};

} // namespace

void parseText(const std::string& text, Parsed& parsed)
{
    Varnel::IMemStream in(text);
    Cpp::Lexer lexer(in);
    Cpp::Parser().parse(lexer, parsed.root, parsed.messages);
}

std::string treeOf(const std::string& text)
{
    Parsed parsed;
    parseText(text, parsed);
    std::string dump = Cpp::dumpTree(parsed.root) + messageLines(parsed.messages, "! ");
    if (std::string problem = checkTree(parsed.root, text); !problem.empty())
        dump += "! spans: " + problem + "\n";
    return dump;
}

std::string extendedTreeOf(const std::string& text)
{
    Parsed parsed;
    Cpp::ParserTestAccess::readExtended(text, parsed);
    std::string dump = Cpp::dumpTree(parsed.root) + messageLines(parsed.messages, "! ");
    if (std::string problem = checkTree(parsed.root, text); !problem.empty())
        dump += "! spans: " + problem + "\n";
    return dump;
}

std::string laterTreeOf(const std::string& text)
{
    Parsed parsed;
    Cpp::ParserTestAccess::readLater(text, parsed);
    std::string dump = Cpp::dumpTree(parsed.root) + messageLines(parsed.messages, "! ");
    if (std::string problem = checkTree(parsed.root, text); !problem.empty())
        dump += "! spans: " + problem + "\n";
    return dump;
}

std::string coreMessagesOf(const std::string& text)
{
    Parsed parsed;
    Cpp::ParserTestAccess::readCore(text, parsed);
    return messageLines(parsed.messages, "");
}

std::string messagesOf(const std::string& text)
{
    Parsed parsed;
    parseText(text, parsed);
    return messageLines(parsed.messages, "");
}

std::string checkTree(Cpp::SyntaxNode& root, const std::string& text)
{
    return SpanChecker(text).check(root, true);
}

} // namespace TwTest

namespace Cpp {

std::string ParserTestAccess::classDump(const std::string& text)
{
    std::vector<Trn::Token> tokens;
    Varnel::IMemStream in(text);
    Lexer lexer(in);
    for (Trn::Token t = lexer.next(); t.type() != END_OF_FILE; t = lexer.next())
        tokens.push_back(t);
    Trn::TokenStream stream(tokens);
    Parser parser;
    std::unique_ptr<ClassDeclNode> node(parser.parseClass(stream));
    return node ? dumpTree(*node) : "null";
}

void ParserTestAccess::readCore(const std::string& text, TwTest::Parsed& parsed)
{
    Varnel::IMemStream in(text);
    Lexer lexer(in);
    Parser parser;
    parser.m_messages.swap(parsed.messages);
    parser.read(lexer, parsed.root, Parser::Reading::CORE, false);
    parser.m_messages.swap(parsed.messages);
}

void ParserTestAccess::readExtended(const std::string& text, TwTest::Parsed& parsed)
{
    readAs(text, parsed, Parser::Reading::EXTENDED);
}

void ParserTestAccess::readLater(const std::string& text, TwTest::Parsed& parsed)
{
    readAs(text, parsed, Parser::Reading::LATER);
}

void ParserTestAccess::readAs(const std::string& text, TwTest::Parsed& parsed, Parser::Reading reading)
{
    Varnel::IMemStream in(text);
    Lexer lexer(in);
    Parser parser;
    // As parse() does it: the parser's list stands in for the caller's.
    parser.m_messages.swap(parsed.messages);
    parser.read(lexer, parsed.root, reading, false);
    parser.m_messages.swap(parsed.messages);
}

} // namespace Cpp
