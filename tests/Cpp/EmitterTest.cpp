// Dispatch: accept() calls exactly the one operation named after the node's
// own class, and nothing walks on by itself.
#include "Cpp_Nodes.h"
#include "Cpp_TokenType.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace {

// Records the name of every operation called.
class Recorder : public Cpp::Emitter {
public:
    std::vector<std::string> calls;

    void emitArgList(Cpp::ArgListNode&) override { calls.push_back("emitArgList"); }
    void emitArg(Cpp::ArgNode&) override { calls.push_back("emitArg"); }
    void emitAsm(Cpp::AsmNode&) override { calls.push_back("emitAsm"); }
    void emitLabel(Cpp::LabelNode&) override { calls.push_back("emitLabel"); }
    void emitText(Cpp::TextNode&) override { calls.push_back("emitText"); }
    void emitFunctionPtrDecl(Cpp::FunctionPtrDeclNode&) override { calls.push_back("emitFunctionPtrDecl"); }
    void emitLinkageBlockBody(Cpp::LinkageBlockBodyNode&) override { calls.push_back("emitLinkageBlockBody"); }
    void emitLinkageBlock(Cpp::LinkageBlockNode&) override { calls.push_back("emitLinkageBlock"); }
    void emitEnumBody(Cpp::EnumBodyNode&) override { calls.push_back("emitEnumBody"); }
    void emitEnumHead(Cpp::EnumHeadNode&) override { calls.push_back("emitEnumHead"); }
    void emitEnumDecl(Cpp::EnumDeclNode&) override { calls.push_back("emitEnumDecl"); }
    void emitPreprocDirective(Cpp::PreprocDirectiveNode&) override { calls.push_back("emitPreprocDirective"); }
    void emitComment(Cpp::CommentNode&) override { calls.push_back("emitComment"); }
    void emitTemplate(Cpp::TemplateNode&) override { calls.push_back("emitTemplate"); }
    void emitCase(Cpp::CaseNode&) override { calls.push_back("emitCase"); }
    void emitKeyword(Cpp::KeywordNode&) override { calls.push_back("emitKeyword"); }
    void emitCtrlSubStmtHead(Cpp::CtrlSubStmtHeadNode&) override { calls.push_back("emitCtrlSubStmtHead"); }
    void emitCtrlSubStmt(Cpp::CtrlSubStmtNode&) override { calls.push_back("emitCtrlSubStmt"); }
    void emitCtrlStmt(Cpp::CtrlStmtNode&) override { calls.push_back("emitCtrlStmt"); }
    void emitExpr(Cpp::ExprNode&) override { calls.push_back("emitExpr"); }
    void emitType(Cpp::TypeNode&) override { calls.push_back("emitType"); }
    void emitInitializer(Cpp::InitializerNode&) override { calls.push_back("emitInitializer"); }
    void emitInitializerList(Cpp::InitializerListNode&) override { calls.push_back("emitInitializerList"); }
    void emitDataDecl(Cpp::DataDeclNode&) override { calls.push_back("emitDataDecl"); }
    void emitParameterList(Cpp::ParameterListNode&) override { calls.push_back("emitParameterList"); }
    void emitParameter(Cpp::ParameterNode&) override { calls.push_back("emitParameter"); }
    void emitId(Cpp::IdNode&) override { calls.push_back("emitId"); }
    void emitFunctionReturn(Cpp::FunctionReturnNode&) override { calls.push_back("emitFunctionReturn"); }
    void emitBlock(Cpp::BlockNode&) override { calls.push_back("emitBlock"); }
    void emitFunctionHead(Cpp::FunctionHeadNode&) override { calls.push_back("emitFunctionHead"); }
    void emitFunctionDecl(Cpp::FunctionDeclNode&) override { calls.push_back("emitFunctionDecl"); }
    void emitCtorDecl(Cpp::CtorDeclNode&) override { calls.push_back("emitCtorDecl"); }
    void emitNamespaceBody(Cpp::NamespaceBodyNode&) override { calls.push_back("emitNamespaceBody"); }
    void emitNamespaceHead(Cpp::NamespaceHeadNode&) override { calls.push_back("emitNamespaceHead"); }
    void emitNamespaceDecl(Cpp::NamespaceDeclNode&) override { calls.push_back("emitNamespaceDecl"); }
    void emitAccessSpec(Cpp::AccessSpecNode&) override { calls.push_back("emitAccessSpec"); }
    void emitClassName(Cpp::ClassNameNode&) override { calls.push_back("emitClassName"); }
    void emitClassHead(Cpp::ClassHeadNode&) override { calls.push_back("emitClassHead"); }
    void emitClassDecl(Cpp::ClassDeclNode&) override { calls.push_back("emitClassDecl"); }
    void emitClassBody(Cpp::ClassBodyNode&) override { calls.push_back("emitClassBody"); }
    void emitBaseClauseList(Cpp::BaseClauseListNode&) override { calls.push_back("emitBaseClauseList"); }
    void emitBaseClause(Cpp::BaseClauseNode&) override { calls.push_back("emitBaseClause"); }
    void emitRoot(Cpp::RootNode&) override { calls.push_back("emitRoot"); }
    void emitInterior(Cpp::InteriorNode&) override { calls.push_back("emitInterior"); }
};

TEST(EmitterTest, EveryClassReachesItsOwnOperationOnly)
{
    const std::vector<std::pair<std::function<Cpp::SyntaxNode*()>, std::string>> cases{
        {[] { return new Cpp::ArgListNode; }, "emitArgList"},
        {[] { return new Cpp::ArgNode; }, "emitArg"},
        {[] { return new Cpp::AsmNode; }, "emitAsm"},
        {[] { return new Cpp::LabelNode; }, "emitLabel"},
        {[] { return new Cpp::TextNode; }, "emitText"},
        {[] { return new Cpp::FunctionPtrDeclNode; }, "emitFunctionPtrDecl"},
        {[] { return new Cpp::LinkageBlockBodyNode; }, "emitLinkageBlockBody"},
        {[] { return new Cpp::LinkageBlockNode; }, "emitLinkageBlock"},
        {[] { return new Cpp::EnumBodyNode; }, "emitEnumBody"},
        {[] { return new Cpp::EnumHeadNode; }, "emitEnumHead"},
        {[] { return new Cpp::EnumDeclNode; }, "emitEnumDecl"},
        {[] { return new Cpp::PreprocDirectiveNode; }, "emitPreprocDirective"},
        {[] { return new Cpp::CommentNode; }, "emitComment"},
        {[] { return new Cpp::TemplateNode; }, "emitTemplate"},
        {[] { return new Cpp::CaseNode; }, "emitCase"},
        {[] { return new Cpp::KeywordNode(Cpp::IF_KEY); }, "emitKeyword"},
        {[] { return new Cpp::CtrlSubStmtHeadNode; }, "emitCtrlSubStmtHead"},
        {[] { return new Cpp::CtrlSubStmtNode; }, "emitCtrlSubStmt"},
        {[] { return new Cpp::CtrlStmtNode; }, "emitCtrlStmt"},
        {[] { return new Cpp::ExprNode; }, "emitExpr"},
        {[] { return new Cpp::TypeNode; }, "emitType"},
        {[] { return new Cpp::InitializerNode; }, "emitInitializer"},
        {[] { return new Cpp::InitializerListNode; }, "emitInitializerList"},
        {[] { return new Cpp::DataDeclNode; }, "emitDataDecl"},
        {[] { return new Cpp::ParameterListNode; }, "emitParameterList"},
        {[] { return new Cpp::ParameterNode; }, "emitParameter"},
        {[] { return new Cpp::IdNode("x"); }, "emitId"},
        {[] { return new Cpp::FunctionReturnNode; }, "emitFunctionReturn"},
        {[] { return new Cpp::BlockNode; }, "emitBlock"},
        {[] { return new Cpp::FunctionHeadNode; }, "emitFunctionHead"},
        {[] { return new Cpp::FunctionDeclNode; }, "emitFunctionDecl"},
        {[] { return new Cpp::CtorDeclNode; }, "emitCtorDecl"},
        {[] { return new Cpp::NamespaceBodyNode; }, "emitNamespaceBody"},
        {[] { return new Cpp::NamespaceHeadNode; }, "emitNamespaceHead"},
        {[] { return new Cpp::NamespaceDeclNode; }, "emitNamespaceDecl"},
        {[] { return new Cpp::AccessSpecNode; }, "emitAccessSpec"},
        {[] { return new Cpp::ClassNameNode; }, "emitClassName"},
        {[] { return new Cpp::ClassHeadNode; }, "emitClassHead"},
        {[] { return new Cpp::ClassDeclNode; }, "emitClassDecl"},
        {[] { return new Cpp::ClassBodyNode; }, "emitClassBody"},
        {[] { return new Cpp::BaseClauseListNode; }, "emitBaseClauseList"},
        {[] { return new Cpp::BaseClauseNode; }, "emitBaseClause"},
        {[] { return new Cpp::RootNode; }, "emitRoot"},
        {[] { return new Cpp::InteriorNode; }, "emitInterior"},
    };
    ASSERT_EQ(cases.size(), 44u);
    for (const auto& [make, operation] : cases) {
        std::unique_ptr<Cpp::SyntaxNode> node(make());
        Recorder recorder;
        node->accept(recorder);
        EXPECT_EQ(recorder.calls, std::vector<std::string>{operation});
        // The clone is of the same class.
        std::unique_ptr<Cpp::SyntaxNode> copy(node->clone());
        Recorder again;
        copy->accept(again);
        EXPECT_EQ(again.calls, std::vector<std::string>{operation});
    }
}

TEST(EmitterTest, SubclassesReachTheirOwnOperationNotTheBasesOne)
{
    Recorder recorder;
    Cpp::FunctionReturnNode returnType;
    returnType.accept(recorder);
    Cpp::CtorDeclNode ctor;
    ctor.accept(recorder);
    Cpp::IdNode id("x");
    id.accept(recorder);
    EXPECT_EQ(recorder.calls, (std::vector<std::string>{"emitFunctionReturn", "emitCtorDecl", "emitId"}));
}

TEST(EmitterTest, WalkerWithoutOverridesVisitsTheRootAndChangesNothing)
{
    Cpp::RootNode root;
    root.add(new Cpp::DataDeclNode(nullptr, new Cpp::IdNode("x", {1, 1}, {1, 1}), nullptr));
    root.add(new Cpp::CommentNode("// c", {1, 3}, {1, 6}));
    Cpp::Emitter plain;
    root.accept(plain);
    EXPECT_EQ(root.size(), 2u);
    Recorder recorder;
    root.accept(recorder);
    EXPECT_EQ(recorder.calls, std::vector<std::string>{"emitRoot"});
}

} // namespace
