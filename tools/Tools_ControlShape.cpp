// The shape of control statements, braces round single statements aside.
#include "Tools_ControlShape.h"

#include "Cpp_Nodes.h"
#include "Cpp_TokenType.h"
#include "Cpp_TreeDump.h"

#include <vector>

namespace Tools {

namespace {

bool counts(Cpp::SyntaxNode* node)
{
    return node && !dynamic_cast<Cpp::CommentNode*>(node) && !dynamic_cast<Cpp::PreprocDirectiveNode*>(node);
}

// The statements a block holds, comments and directives left out.
std::vector<Cpp::SyntaxNode*> statementsOf(Cpp::BlockNode& block)
{
    std::vector<Cpp::SyntaxNode*> out;
    for (auto it = block.childrenBegin(); it != block.childrenEnd(); ++it)
        if (counts(*it))
            out.push_back(*it);
    return out;
}

std::string shapeOf(Cpp::SyntaxNode& node);

// One statement of a block or a body: a control statement or a block by its
// shape, anything else as "s" followed by whatever control statements it
// holds (a lambda's, say).
std::string statementShape(Cpp::SyntaxNode& node)
{
    if (dynamic_cast<Cpp::CtrlStmtNode*>(&node) || dynamic_cast<Cpp::BlockNode*>(&node))
        return shapeOf(node);
    return "s" + shapeOf(node);
}

// A body: its statements, as if it had no braces, and a body that holds
// nothing but one block as that block's statements: `{ {a;} }`, `{a;}` and
// `a;` are one shape.
std::string bodyShape(Cpp::BlockNode& body)
{
    std::vector<Cpp::SyntaxNode*> statements = statementsOf(body);
    while (statements.size() == 1) {
        auto* inner = dynamic_cast<Cpp::BlockNode*>(statements.front());
        if (!inner)
            break;
        statements = statementsOf(*inner);
    }
    std::string out;
    for (Cpp::SyntaxNode* s : statements)
        out += statementShape(*s);
    return out;
}

std::string keywordName(Cpp::CtrlSubStmtNode& part)
{
    Cpp::CtrlSubStmtHeadNode* head = part.head();
    if (!head || !head->keyword())
        return "?";
    return Cpp::tokenTypeName(head->keyword()->type());
}

std::vector<Cpp::CtrlSubStmtNode*> partsOf(Cpp::CtrlStmtNode& statement)
{
    std::vector<Cpp::CtrlSubStmtNode*> parts;
    for (auto it = statement.childrenBegin(); it != statement.childrenEnd(); ++it)
        if (auto* part = dynamic_cast<Cpp::CtrlSubStmtNode*>(*it))
            parts.push_back(part);
    return parts;
}

// `else if`: the inner if statement that the else part's body is, or null.
Cpp::CtrlStmtNode* elseIfOf(Cpp::CtrlSubStmtNode& part)
{
    Cpp::BlockNode* body = part.body();
    if (keywordName(part) != "ELSE_KEY" || !body || body->size() != 1)
        return nullptr;
    auto* inner = dynamic_cast<Cpp::CtrlStmtNode*>(*body->childrenBegin());
    if (!inner || inner->empty() || inner->begin() != body->begin())
        return nullptr;
    const std::vector<Cpp::CtrlSubStmtNode*> parts = partsOf(*inner);
    return !parts.empty() && keywordName(*parts.front()) == "IF_KEY" ? inner : nullptr;
}

// A chain of parts. The parts that follow an `else if` in the same
// statement belong to the inner if: `else if (b) c; else d;` and
// `else { if (b) c; else d; }` are one shape.
std::string chainShape(std::vector<Cpp::CtrlSubStmtNode*> parts)
{
    std::string out = "(";
    for (std::size_t i = 0; i < parts.size(); ++i) {
        Cpp::CtrlSubStmtNode& part = *parts[i];
        if (Cpp::CtrlStmtNode* inner = elseIfOf(part)) {
            std::vector<Cpp::CtrlSubStmtNode*> rest = partsOf(*inner);
            rest.insert(rest.end(), parts.begin() + static_cast<std::ptrdiff_t>(i) + 1, parts.end());
            out += "ELSE_KEY[" + chainShape(rest) + "]";
            break;
        }
        out += keywordName(part) + "[";
        if (Cpp::BlockNode* body = part.body())
            out += bodyShape(*body);
        out += "]";
    }
    return out + ")";
}

std::string shapeOf(Cpp::SyntaxNode& node)
{
    if (auto* statement = dynamic_cast<Cpp::CtrlStmtNode*>(&node))
        return chainShape(partsOf(*statement));
    if (auto* block = dynamic_cast<Cpp::BlockNode*>(&node)) {
        std::string out = "{";
        for (Cpp::SyntaxNode* s : statementsOf(*block))
            out += statementShape(*s);
        return out + "}";
    }
    std::string out;
    for (Cpp::SyntaxNode* child : Cpp::childrenOf(node))
        if (counts(child))
            out += shapeOf(*child);
    return out;
}

} // namespace

std::string controlShape(Cpp::SyntaxNode& root)
{
    return shapeOf(root);
}

} // namespace Tools
