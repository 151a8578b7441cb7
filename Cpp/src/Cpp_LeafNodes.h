// The leaves of the syntax tree: nodes that cover one stretch of text and have
// no children. Most hold only their range, for the passes read the text again
// by position; a few keep a token type, a name or a flag of their own.
//
// Constructors by role: a default one (everything empty), one taking the
// node's own value, and one taking that and the range.
#ifndef CPP_LEAFNODES_H
#define CPP_LEAFNODES_H

#include "Cpp_SyntaxNode.h"
#include "Trn_Exception.h"

#include <cstdint>
#include <string>

namespace Cpp {

// A keyword node was made with a token type outside the keyword range.
class InvalidKeyword : public Trn::Exception {
public:
    InvalidKeyword();
};

// A name node was made with an empty name.
class InvalidId : public Trn::Exception {
public:
    InvalidId();
};

// A run of text not further analysed: the qualifiers behind a parameter list,
// the body of an asm statement written without braces.
class TextNode : public LeafNode {
public:
    TextNode() = default;
    TextNode(const Trn::Position& b, const Trn::Position& e) : LeafNode(b, e) {}
    TW_NODE_COPYABLE(TextNode);

    void accept(Emitter& emitter) override;
    SyntaxNode* clone() const override;
};

// A comment, or a protected region of the text that passes unchanged (then
// the text is empty and the range covers the region).
class CommentNode : public TextNode {
public:
    CommentNode() = default;
    explicit CommentNode(std::string text, bool isProtected = false);
    CommentNode(std::string text, const Trn::Position& b, const Trn::Position& e, bool isProtected = false);
    TW_NODE_COPYABLE(CommentNode);

    void accept(Emitter& emitter) override;
    SyntaxNode* clone() const override;

    const std::string& text() const { return m_text; }
    void setText(std::string text) { m_text = std::move(text); }
    bool isProtected() const { return m_isProtected; }
    void setProtected(bool isProtected) { m_isProtected = isProtected; }

    // "//..." with at least two characters; never for a protected region.
    bool isLineComment() const;
    // "/*..." with more than two characters; never for a protected region.
    bool isBlockComment() const;
    // The text without its delimiters: trimmed at the left; "//" taken off;
    // "/*" and "*/" taken off only when both are there. Anything else is
    // given back as it is. Trailing white space inside stays.
    std::string content() const;

private:
    std::string m_text;
    bool m_isProtected = false;
};

// One preprocessor directive with its continuation lines, or a whole
// disabled "#if 0" block.
class PreprocDirectiveNode : public TextNode {
public:
    PreprocDirectiveNode() = default;
    PreprocDirectiveNode(const Trn::Position& b, const Trn::Position& e) : TextNode(b, e) {}
    TW_NODE_COPYABLE(PreprocDirectiveNode);

    void accept(Emitter& emitter) override;
    SyntaxNode* clone() const override;
};

// A name. The name is never empty: setting an empty one throws InvalidId.
class IdNode : public TextNode {
public:
    IdNode() = default;
    explicit IdNode(std::string name);
    IdNode(std::string name, const Trn::Position& b, const Trn::Position& e);
    TW_NODE_COPYABLE(IdNode);

    void accept(Emitter& emitter) override;
    SyntaxNode* clone() const override;

    const std::string& name() const { return m_name; }
    void setName(std::string name);

private:
    std::string m_name;
};

// An expression, or any other run of tokens handed to the expression formatter.
class ExprNode : public LeafNode {
public:
    ExprNode() = default;
    ExprNode(const Trn::Position& b, const Trn::Position& e) : LeafNode(b, e) {}
    TW_NODE_COPYABLE(ExprNode);

    void accept(Emitter& emitter) override;
    SyntaxNode* clone() const override;
};

// A type with its specifiers.
class TypeNode : public LeafNode {
public:
    TypeNode() = default;
    TypeNode(const Trn::Position& b, const Trn::Position& e) : LeafNode(b, e) {}
    TW_NODE_COPYABLE(TypeNode);

    void accept(Emitter& emitter) override;
    SyntaxNode* clone() const override;
};

// The return type of a function.
class FunctionReturnNode : public TypeNode {
public:
    FunctionReturnNode() = default;
    FunctionReturnNode(const Trn::Position& b, const Trn::Position& e) : TypeNode(b, e) {}
    TW_NODE_COPYABLE(FunctionReturnNode);

    void accept(Emitter& emitter) override;
    SyntaxNode* clone() const override;
};

// One argument of a member initialiser.
class ArgNode : public LeafNode {
public:
    ArgNode() = default;
    ArgNode(const Trn::Position& b, const Trn::Position& e) : LeafNode(b, e) {}
    TW_NODE_COPYABLE(ArgNode);

    void accept(Emitter& emitter) override;
    SyntaxNode* clone() const override;
};

// One keyword. Its type lies in the keyword range CLASS_KEY..DEFAULT_KEY;
// a constructor or setter given another type throws InvalidKeyword.
class KeywordNode : public LeafNode {
public:
    KeywordNode() = default;
    explicit KeywordNode(std::int32_t type);
    KeywordNode(std::int32_t type, const Trn::Position& b, const Trn::Position& e);
    TW_NODE_COPYABLE(KeywordNode);

    void accept(Emitter& emitter) override;
    SyntaxNode* clone() const override;

    std::int32_t type() const { return m_type; }
    void setType(std::int32_t type);

private:
    std::int32_t m_type = 0;
};

// An access label, "public:", "protected slots:", or a macro word used as a
// label ("signals:"). The range runs through the colon; the text is the label
// without it. `extended` is set when words follow the keyword.
class AccessSpecNode : public LeafNode {
public:
    AccessSpecNode() = default;
    AccessSpecNode(std::int32_t type, std::string text, bool extended);
    AccessSpecNode(std::int32_t type, std::string text, bool extended, const Trn::Position& b,
                   const Trn::Position& e);
    TW_NODE_COPYABLE(AccessSpecNode);

    void accept(Emitter& emitter) override;
    SyntaxNode* clone() const override;

    // PUBLIC_KEY, PROTECTED_KEY, PRIVATE_KEY, or IDENTIFIER for a macro label.
    std::int32_t type() const { return m_type; }
    void setType(std::int32_t type) { m_type = type; }
    // 1 public, 2 protected, 3 private, 4 a macro label, 0 none.
    std::int32_t kind() const;
    const std::string& text() const { return m_text; }
    void setText(std::string text) { m_text = std::move(text); }
    bool extended() const { return m_extended; }
    void setExtended(bool extended) { m_extended = extended; }

private:
    std::int32_t m_type = 0;
    std::string m_text;
    bool m_extended = false;
};

// The class key and name of a class head, with any macro words and template
// arguments that stand between them, joined by single blanks.
class ClassNameNode : public LeafNode {
public:
    ClassNameNode() = default;
    ClassNameNode(std::int32_t type, const std::string& name);
    ClassNameNode(std::int32_t type, const std::string& name, const Trn::Position& b, const Trn::Position& e);
    TW_NODE_COPYABLE(ClassNameNode);

    void accept(Emitter& emitter) override;
    SyntaxNode* clone() const override;

    // CLASS_KEY, STRUCT_KEY or UNION_KEY.
    std::int32_t type() const { return m_type; }
    void setType(std::int32_t type) { m_type = type; }
    const std::string& name() const { return m_name; }
    // Contract: the name is not empty.
    void setName(const std::string& n);

private:
    std::int32_t m_type = 0;
    std::string m_name;
};

// One base class of a class head.
class BaseClauseNode : public LeafNode {
public:
    // The access of a clause without an access keyword.
    static constexpr std::int32_t NO_ACCESS = 0;

    BaseClauseNode() = default;
    BaseClauseNode(std::int32_t type, bool isVirtual, const std::string& name);
    BaseClauseNode(std::int32_t type, bool isVirtual, const std::string& name, const Trn::Position& b,
                   const Trn::Position& e);
    TW_NODE_COPYABLE(BaseClauseNode);

    void accept(Emitter& emitter) override;
    SyntaxNode* clone() const override;

    // PUBLIC_KEY, PROTECTED_KEY, PRIVATE_KEY or NO_ACCESS.
    std::int32_t type() const { return m_type; }
    void setType(std::int32_t type) { m_type = type; }
    bool isVirtual() const { return m_isVirtual; }
    void setVirtual(bool isVirtual) { m_isVirtual = isVirtual; }
    const std::string& name() const { return m_name; }
    // Contract: the name is not empty.
    void setName(const std::string& n);

private:
    std::int32_t m_type = NO_ACCESS;
    bool m_isVirtual = false;
    std::string m_name;
};

// "enum" and its tag, with the words around them joined by single blanks.
class EnumHeadNode : public LeafNode {
public:
    EnumHeadNode() = default;
    explicit EnumHeadNode(std::string name) : m_name(std::move(name)) {}
    EnumHeadNode(std::string name, const Trn::Position& b, const Trn::Position& e)
        : LeafNode(b, e), m_name(std::move(name))
    {
    }
    TW_NODE_COPYABLE(EnumHeadNode);

    void accept(Emitter& emitter) override;
    SyntaxNode* clone() const override;

    const std::string& name() const { return m_name; }
    void setName(std::string name) { m_name = std::move(name); }

private:
    std::string m_name;
};

// "namespace" and its name; the name is empty for an unnamed namespace.
class NamespaceHeadNode : public LeafNode {
public:
    NamespaceHeadNode() = default;
    explicit NamespaceHeadNode(std::string name) : m_name(std::move(name)) {}
    NamespaceHeadNode(std::string name, const Trn::Position& b, const Trn::Position& e)
        : LeafNode(b, e), m_name(std::move(name))
    {
    }
    TW_NODE_COPYABLE(NamespaceHeadNode);

    void accept(Emitter& emitter) override;
    SyntaxNode* clone() const override;

    const std::string& name() const { return m_name; }
    void setName(std::string name) { m_name = std::move(name); }

private:
    std::string m_name;
};

// One parameter of a parameter list, as a span: no type and name split.
class ParameterNode : public LeafNode {
public:
    ParameterNode() = default;
    explicit ParameterNode(bool endsInAngle) : m_endsInAngle(endsInAngle) {}
    ParameterNode(bool endsInAngle, const Trn::Position& b, const Trn::Position& e)
        : LeafNode(b, e), m_endsInAngle(endsInAngle)
    {
    }
    TW_NODE_COPYABLE(ParameterNode);

    void accept(Emitter& emitter) override;
    SyntaxNode* clone() const override;

    // True when the parameter's text holds the ">" of a nested template.
    bool endsInAngle() const { return m_endsInAngle; }
    void setEndsInAngle(bool endsInAngle) { m_endsInAngle = endsInAngle; }

private:
    bool m_endsInAngle = false;
};

} // namespace Cpp

#endif
