// The property catalogue: complete over the name list, typed, with the pages,
// labels, choices and fallbacks the editor and the documentation read.
#include "KemptUI_PropertyCatalogue.h"
#include "Kempt_NormaliseProperties.h"

#include "Kempt_PropertyNames.h"
#include "Varnel_Contract.h"

#include <gtest/gtest.h>

#include <map>
#include <set>

namespace {

namespace P = Kempt::Prop;
using namespace KemptUI;

const PropertyInfo& info(const char* name)
{
    const PropertyInfo* p = findProperty(name);
    EXPECT_NE(p, nullptr) << name;
    static const PropertyInfo none{};
    return p ? *p : none;
}

std::string labelsOf(std::span<const Choice> choices)
{
    std::string text;
    for (const Choice& c : choices)
        text += std::to_string(c.stored) + "=" + c.label + ";";
    return text;
}

TEST(PropertyCatalogueTest, EveryNameHasExactlyOneEntryAndNoOtherEntryExists)
{
    std::set<std::string> seen;
    for (const PropertyInfo& p : catalogue()) {
        EXPECT_TRUE(seen.insert(p.name).second) << "twice: " << p.name;
        EXPECT_NE(std::find(P::ALL_NAMES.begin(), P::ALL_NAMES.end(), std::string_view(p.name)), P::ALL_NAMES.end())
            << p.name;
    }
    for (const std::string_view name : P::ALL_NAMES)
        EXPECT_NE(findProperty(name), nullptr) << "not in the catalogue: " << name;
    EXPECT_EQ(catalogue().size(), P::ALL_NAMES.size());
    EXPECT_EQ(findProperty("NO_SUCH_PROPERTY"), nullptr);
}

TEST(PropertyCatalogueTest, EntriesUseTheSharedNameConstants)
{
    // The very same constant, not a second spelling of the name.
    EXPECT_EQ(info("TAB_SIZE").name, P::TAB_SIZE);
    EXPECT_EQ(info("WS_BETWEEN_CS_CASES").name, P::WS_BETWEEN_CS_CASES);
    EXPECT_EQ(pageInfo(Page::DATA).doNotFormat, P::DATA_DO_NOT_FORMAT);
}

TEST(PropertyCatalogueTest, CountsByRole)
{
    std::map<PropertyRole, int> count;
    for (const PropertyInfo& p : catalogue())
        ++count[p.role];
    EXPECT_EQ(count[PropertyRole::OPTION], 105);
    EXPECT_EQ(count[PropertyRole::DO_NOT_FORMAT], 13);
    EXPECT_EQ(count[PropertyRole::USE_GLOBAL], 8);
    EXPECT_EQ(count[PropertyRole::NO_PAGE], 8);
    EXPECT_EQ(count[PropertyRole::VERSION], 1);
    EXPECT_EQ(count[PropertyRole::UNUSED], 8);
    EXPECT_EQ(count[PropertyRole::RETIRED], 9);
}

TEST(PropertyCatalogueTest, PagesInTabOrderWithTheirSectionFlags)
{
    const std::vector<std::tuple<std::string, std::string, const char*, const char*>> expected = {
        {"GlobalsPage", "Global Settings", P::GLOBALS_DO_NOT_FORMAT, nullptr},
        {"NamespacesPage", "Namespaces", P::NAMESPACES_DO_NOT_FORMAT, P::NS_USE_GLOBAL_SETTINGS},
        {"ClassesPage", "Classes, Structs and Unions", P::CLASS_DO_NOT_FORMAT, P::CLASS_USE_GLOBAL_SETTINGS},
        {"EnumsPage", "Enums", P::ENUMS_DO_NOT_FORMAT, P::ENUM_USE_GLOBAL_SETTINGS},
        {"FunctionsPage", "Functions", P::FN_DO_NOT_FORMAT, P::FN_USE_GLOBAL_SETTINGS},
        {"MemberInitsPage", "Member Initializer Lists", P::MEMBERINITS_DO_NOT_FORMAT, nullptr},
        {"DataPage", "Variable Declarations", P::DATA_DO_NOT_FORMAT, P::DATA_USE_GLOBAL_SETTINGS},
        {"ControlStatementsPage", "Control Statements", P::CONTROL_STATEMENTS_DO_NOT_FORMAT,
         P::CONTROL_STATEMENTS_USE_GLOBAL_SETTINGS},
        {"PreprocessorPage", "Preprocessor Directives", P::PPD_DO_NOT_FORMAT, nullptr},
        {"ExpressionsPage", "Expressions", P::EXPR_DO_NOT_FORMAT, P::EXPR_USE_GLOBAL_SETTINGS},
        {"PointersRefsPage", "Pointers && References", P::POINTERSREFS_DO_NOT_FORMAT,
         P::POINTERSREFS_USE_GLOBAL_SETTINGS},
        {"TemplatesPage", "Templates", P::TEMPLATES_DO_NOT_FORMAT, nullptr},
        {"LineWrappingPage", "Line Wrapping", P::LINE_WRAP_DO_NOT_FORMAT, nullptr},
    };
    ASSERT_EQ(pages().size(), expected.size());
    for (std::size_t i = 0; i < expected.size(); ++i) {
        const PageInfo& page = pages()[i];
        EXPECT_EQ(page.className, std::get<0>(expected[i]));
        EXPECT_EQ(page.title, std::get<1>(expected[i]));
        EXPECT_EQ(page.doNotFormat, std::get<2>(expected[i]));
        EXPECT_EQ(page.useGlobal, std::get<3>(expected[i]));
        // The flags stand in the catalogue on their page, in their role.
        EXPECT_EQ(info(page.doNotFormat).role, PropertyRole::DO_NOT_FORMAT);
        EXPECT_EQ(info(page.doNotFormat).page, page.page);
        if (page.useGlobal) {
            EXPECT_EQ(info(page.useGlobal).role, PropertyRole::USE_GLOBAL);
            EXPECT_EQ(info(page.useGlobal).page, page.page);
        }
    }
    EXPECT_EQ(displayText(pageInfo(Page::POINTERS_REFS).title), "Pointers & References");
}

TEST(PropertyCatalogueTest, FieldsOfThePagesInOrder)
{
    auto names = [](Page page) {
        std::vector<std::string> out;
        for (const PropertyInfo* p : propertiesOn(page))
            out.push_back(p->name);
        return out;
    };
    EXPECT_EQ(names(Page::GLOBALS),
              (std::vector<std::string>{"TAB_SIZE", "CONVERT_WS", "LEFT_MARGIN", "GLOBAL_INDENT_CONTENT",
                                        "GLOBAL_WS_AFTER_OPEN_PAREN", "GLOBAL_WS_BEFORE_CLOSE_PAREN",
                                        "GLOBAL_WS_BEFORE_OPEN_BRACE", "GLOBAL_WS_AFTER_OPEN_BRACE",
                                        "GLOBAL_WS_BEFORE_CLOSE_BRACE", "GLOBAL_WS_BEFORE_COMMA",
                                        "BRACE_OFFSET_RELATIVE", "GLOBALS_DO_NOT_FORMAT"}));
    EXPECT_EQ(names(Page::PREPROCESSOR), (std::vector<std::string>{"ALIGN_PPD_LEFT_MOST", "PPD_DO_NOT_FORMAT"}));
    EXPECT_EQ(names(Page::MEMBER_INITS),
              (std::vector<std::string>{"WS_BEFORE_CLASS_INIT_LIST", "WS_AFTER_CLASS_INIT_LIST",
                                        "WS_BEFORE_CLASS_INITS", "WS_BEFORE_CLASS_INITS_COMMA",
                                        "WS_BETWEEN_CLASS_INITS", "MEMBERINITS_DO_NOT_FORMAT"}));
    // The hidden field of an unused name is no field of the page.
    const std::vector<std::string> cs = names(Page::CONTROL_STATEMENTS);
    EXPECT_EQ(cs.size(), 18u);
    EXPECT_EQ(std::count(cs.begin(), cs.end(), "WS_BETWEEN_CS_CASES"), 0);
    EXPECT_TRUE(names(Page::NONE).empty());
    std::size_t onPages = 0;
    for (const PageInfo& page : pages())
        onPages += propertiesOn(page.page).size();
    EXPECT_EQ(onPages, 126u);
}

TEST(PropertyCatalogueTest, LabelsOfTheFunctionsPage)
{
    std::vector<std::pair<std::string, std::string>> labels;
    for (const PropertyInfo* p : propertiesOn(Page::FUNCTIONS))
        labels.emplace_back(p->name, p->label);
    const std::vector<std::pair<std::string, std::string>> expected = {
        {"INDENT_FN_CONTENT", "Body:"},
        {"WS_AFTER_FN_DECL_RETURN_TYPE", "After type name:"},
        {"WS_AFTER_FN_NAME", "After function name:"},
        {"WS_AFTER_FN_OPEN_PAREN", "After open paren:"},
        {"WS_BEFORE_FN_CLOSE_PAREN", "Before close paren:"},
        {"WS_BEFORE_FN_COMMA", "Before comma:"},
        {"WS_BETWEEN_FN_PARAMS", "Between parameters:"},
        {"WS_AFTER_FN_DEFN_RETURN_TYPE", "After type name:"},
        {"WS_BEFORE_FN_OPEN_BRACE", "Before body open:"},
        {"WS_AFTER_FN_OPEN_BRACE", "After body open:"},
        {"WS_BEFORE_FN_CLOSE_BRACE", "Before body close:"},
        {"ALIGN_FN_DECL_NAMES_LEFT", "Left align function names in groups of function declarations"},
        {"FN_DO_NOT_FORMAT", "Do not format"},
        {"FN_USE_GLOBAL_SETTINGS", "Use global settings"},
    };
    EXPECT_EQ(labels, expected);
    EXPECT_STREQ(info(P::WS_AFTER_FN_DEFN_RETURN_TYPE).group, "White space - function definitions only:");
}

TEST(PropertyCatalogueTest, LabelsThatNeedCare)
{
    EXPECT_STREQ(info(P::WS_BETWEEN_CS_FOR_CLAUSES).label, "Between \"for\" clauses:");
    EXPECT_STREQ(info(P::WS_AFTER_CLASS_NAME).label, "Before base clause open:");
    EXPECT_STREQ(info(P::WS_BEFORE_BASE_CLAUSES).label, "After base clause open:");
    EXPECT_STREQ(info(P::WS_BETWEEN_CS).label, "After body close:");
    EXPECT_STREQ(info(P::WS_BETWEEN_UNARY_OP_OPERAND).label, "Right of unary operator:");
    EXPECT_STREQ(info(P::WS_AFTER_DD_TYPE_ID).label, "After typename:");
    EXPECT_STREQ(info(P::WS_BETWEEN_CS_CASES).label, "Between cases:");
    EXPECT_EQ(info(P::WS_BETWEEN_CS_CASES).role, PropertyRole::UNUSED);
    // Anchor-dependent labels: the first while "Typename" is chosen.
    EXPECT_STREQ(info(P::WS_BETWEEN_ASTERISK_ANCHOR).label, "White space between Type and * :");
    EXPECT_STREQ(info(P::WS_BETWEEN_ASTERISK_ANCHOR).alternateLabel, "White space between * and Identifier:");
    EXPECT_EQ(displayText(info(P::WS_BETWEEN_AMPERSAND_ANCHOR).label), "White space between Type and & :");
    EXPECT_EQ(displayText(info(P::WS_BETWEEN_AMPERSAND_ANCHOR).alternateLabel),
              "White space between & and Identifier:");
    EXPECT_EQ(displayText(info(P::AMPERSAND_ANCHOR).label), "Keep & with:");
    EXPECT_EQ(displayText(info(P::HANGING_AMPERSAND).label), "Hang & to left of aligned names:");
    EXPECT_EQ(displayText("&Help"), "Help");
    EXPECT_EQ(displayText("a && b &"), "a & b ");
}

TEST(PropertyCatalogueTest, ChoicesWithTheirLabelsAndFallbacks)
{
    const std::vector<std::tuple<const char*, std::string, std::int32_t, std::string>> expected = {
        {P::CONVERT_WS, "1=tabs to spaces;2=spaces to tabs;0=do not convert;", 1, "Convert"},
        {P::WRAP_STYLE, "1=Align logically with previous line;2=Indent by;", 1, "Treatment of line continuation"},
        {P::EXPR_WRAP_STYLE, "1=Before an operator;2=After an operator;", 2, "Wrap expressions"},
        {P::SHIFT_WRAP_STYLE, "1=Before the shift operator;2=After the shift operator;", 1,
         "Wrap input and output expressions"},
        {P::COMMA_WRAP_STYLE, "1=Before the comma;2=After the comma;", 2, "Wrap comma separated lists"},
        {P::LIST_WRAP_STRATEGY,
         "1=Fit as many elements as possible on a single line;2=Put each element on a separate line;", 1,
         "List wrap strategy"},
        {P::IF_ELSE_CS_SINGLE_STMT_BRACE_STYLE, "1=Always brace;2=Never brace;0=Leave as is;", 0,
         "Single statement control blocks"},
        {P::FOR_CS_SINGLE_STMT_BRACE_STYLE, "1=Always brace;2=Never brace;0=Leave as is;", 0,
         "Single statement control blocks"},
        {P::WHILE_CS_SINGLE_STMT_BRACE_STYLE, "1=Always brace;2=Never brace;0=Leave as is;", 0,
         "Single statement control blocks"},
    };
    for (const auto& [name, choices, fallback, group] : expected) {
        const PropertyInfo& p = info(name);
        EXPECT_EQ(p.kind, PropertyKind::CHOICE) << name;
        EXPECT_EQ(labelsOf(p.choices), choices) << name;
        EXPECT_EQ(std::get<std::int32_t>(p.fallback), fallback) << name;
        EXPECT_EQ(p.group, group) << name;
    }
    EXPECT_STREQ(info(P::IF_ELSE_CS_SINGLE_STMT_BRACE_STYLE).label, "if/else");
    EXPECT_STREQ(info(P::FOR_CS_SINGLE_STMT_BRACE_STYLE).label, "for");
    EXPECT_STREQ(info(P::WHILE_CS_SINGLE_STMT_BRACE_STYLE).label, "while");
}

TEST(PropertyCatalogueTest, ConvertWsSevenShowsDoNotConvertAndSavesZero)
{
    const PropertyInfo& convert = info(P::CONVERT_WS);
    const std::int32_t radio = radioIndex(convert, 7);
    EXPECT_EQ(radio, 2);
    EXPECT_STREQ(convert.choices[static_cast<std::size_t>(radio)].label, "do not convert");
    EXPECT_EQ(storedValue(convert, radio), 0);
    EXPECT_EQ(radioIndex(convert, 1), 0);
    EXPECT_EQ(radioIndex(convert, 2), 1);
    EXPECT_EQ(radioIndex(convert, 0), 2);
    // Two radios only: a stray value selects none.
    EXPECT_EQ(radioIndex(info(P::WRAP_STYLE), 7), -1);
    EXPECT_EQ(radioIndex(info(P::WRAP_STYLE), 2), 1);
    EXPECT_THROW(storedValue(info(P::WRAP_STYLE), 2), Varnel::ContractViolation);
}

TEST(PropertyCatalogueTest, AnchorsAreTheRadioIndexItself)
{
    const PropertyInfo& anchor = info(P::ASTERISK_ANCHOR);
    EXPECT_EQ(anchor.kind, PropertyKind::ANCHOR);
    EXPECT_EQ(std::get<std::int32_t>(anchor.fallback), -1);
    EXPECT_EQ(labelsOf(anchor.choices), "0=Typename;1=Identifier;");
    EXPECT_EQ(radioIndex(anchor, -1), -1);
    EXPECT_EQ(radioIndex(anchor, 0), 0);
    EXPECT_EQ(radioIndex(anchor, 1), 1);
    EXPECT_EQ(radioIndex(anchor, 2), -1);
    EXPECT_EQ(storedValue(anchor, 1), 1);
    EXPECT_EQ(info(P::AMPERSAND_ANCHOR).kind, PropertyKind::ANCHOR);
    EXPECT_THROW(radioIndex(info(P::TAB_SIZE), 1), Varnel::ContractViolation);
}

TEST(PropertyCatalogueTest, FallbacksOfEveryFieldOnAPage)
{
    for (const PageInfo& page : pages()) {
        for (const PropertyInfo* p : propertiesOn(page.page)) {
            switch (p->kind) {
            case PropertyKind::WHITE_SPACE:
            case PropertyKind::AMOUNT:
                EXPECT_EQ(std::get<std::string_view>(p->fallback), "") << p->name;
                break;
            case PropertyKind::FLAG:
                EXPECT_EQ(std::get<bool>(p->fallback), p->name == std::string(P::ALIGN_PPD_LEFT_MOST)) << p->name;
                break;
            case PropertyKind::NUMBER:
            case PropertyKind::CHOICE:
            case PropertyKind::ANCHOR:
                EXPECT_TRUE(std::holds_alternative<std::int32_t>(p->fallback)) << p->name;
                break;
            default:
                ADD_FAILURE() << "unexpected kind on a page: " << p->name;
            }
        }
    }
    EXPECT_EQ(std::get<std::int32_t>(info(P::TAB_SIZE).fallback), 4);
    EXPECT_EQ(info(P::TAB_SIZE).minimum, 0);
    EXPECT_EQ(info(P::TAB_SIZE).maximum, 32767);
    EXPECT_EQ(std::get<std::int32_t>(info(P::RIGHT_MARGIN).fallback), 78);
    EXPECT_EQ(info(P::WRAP_INDENT).kind, PropertyKind::AMOUNT);
}

TEST(PropertyCatalogueTest, PropertiesOnNoPageAndOtherRolesHaveNoFallback)
{
    const std::vector<std::pair<const char*, PropertyKind>> noPage = {
        {P::WS_AFTER_PARAM_TYPE_ID, PropertyKind::WHITE_SPACE}, {P::WS_BEFORE_ACCESS_SPECS, PropertyKind::WHITE_SPACE},
        {P::ALIGN_BASE_CLAUSES_LEFT, PropertyKind::FLAG},       {P::ALIGN_TP_PARAMS_LEFT, PropertyKind::FLAG},
        {P::ALIGN_CS_FOR_CLAUSES_LEFT, PropertyKind::FLAG},     {P::ALIGN_FN_PARAMS_LEFT, PropertyKind::FLAG},
        {P::ALIGN_FN_CALL_ARGS_LEFT, PropertyKind::FLAG},       {P::INDENT_WRAP_STYLE, PropertyKind::INTEGER},
    };
    for (const auto& [name, kind] : noPage) {
        EXPECT_EQ(info(name).role, PropertyRole::NO_PAGE) << name;
        EXPECT_EQ(info(name).kind, kind) << name;
        EXPECT_EQ(info(name).page, Page::NONE) << name;
    }
    for (const PropertyInfo& p : catalogue()) {
        if (p.role == PropertyRole::NO_PAGE || p.role == PropertyRole::UNUSED || p.role == PropertyRole::RETIRED
            || p.role == PropertyRole::VERSION) {
            EXPECT_TRUE(std::holds_alternative<std::monostate>(p.fallback)) << p.name;
        }
    }
    for (const char* name : {P::ALIGN_BASE_CLAUSES_LEFT_ON_WRAP, P::ALIGN_CS_FOR_CLAUSES_ON_WRAP,
                             P::ALIGN_FN_PARAMS_LEFT_ON_WRAP, P::INDENT_CLASS_INITS, P::INDENT_FN_PARAMS,
                             P::WS_AFTER_ACCESS_SPEC_LABEL, P::WS_AFTER_FN_DECL, P::WS_BETWEEN_CS_CASES})
        EXPECT_EQ(info(name).role, PropertyRole::UNUSED) << name;
    for (const char* name : {P::ALIGN_CS_FOR_CLAUSES_LEFT_ON_WRAP, P::SPACES_PER_TAB, P::WS_AFTER_CLASS_HEAD,
                             P::WS_AFTER_CS_HEAD, P::WS_AFTER_DD_NAME, P::WS_AFTER_DD_RBRACKET, P::WS_AFTER_ENUM_HEAD,
                             P::WS_AFTER_FN_HEAD, P::WS_AFTER_NS_HEAD})
        EXPECT_EQ(info(name).role, PropertyRole::RETIRED) << name;
    EXPECT_EQ(info(P::TIDEWRIGHT_VERSION).kind, PropertyKind::VERSION);
}

TEST(PropertyCatalogueTest, StorageFollowsTheKind)
{
    EXPECT_EQ(storageOf(PropertyKind::FLAG), Storage::BOOL);
    for (const PropertyKind k : {PropertyKind::NUMBER, PropertyKind::CHOICE, PropertyKind::ANCHOR, PropertyKind::INTEGER})
        EXPECT_EQ(storageOf(k), Storage::INT);
    for (const PropertyKind k : {PropertyKind::WHITE_SPACE, PropertyKind::AMOUNT, PropertyKind::VERSION})
        EXPECT_EQ(storageOf(k), Storage::STRING);
}

TEST(PropertyCatalogueTest, GlobalSourcesAreGlobalFieldsOfPagesWithTheUseGlobalFlag)
{
    int count = 0;
    for (const PropertyInfo& p : catalogue()) {
        if (!*p.globalSource)
            continue;
        ++count;
        EXPECT_EQ(info(p.globalSource).page, Page::GLOBALS) << p.name;
        EXPECT_EQ(info(p.globalSource).kind, p.kind) << p.name;
        EXPECT_NE(pageInfo(p.page).useGlobal, nullptr) << p.name;
    }
    EXPECT_EQ(count, 35); // body fields, commas and parens of seven pages
    EXPECT_STREQ(info(P::INDENT_CS_CONTENT).globalSource, P::GLOBAL_INDENT_CONTENT);
    EXPECT_STREQ(info(P::WS_BEFORE_FN_CALL_COMMA).globalSource, P::GLOBAL_WS_BEFORE_COMMA);
}

TEST(PropertyCatalogueTest, SchemeWithoutTabSizeFormatsWithOne)
{
    // The same scheme as below, as a formatting run completes it.
    Kempt::PropertySet set;
    set.setInt(P::CONVERT_WS, 0);
    Kempt::normaliseProperties(set);
    std::int32_t tabSize = 0;
    EXPECT_TRUE(set.getInt(P::TAB_SIZE, tabSize));
    EXPECT_EQ(tabSize, 1);
}

TEST(PropertyCatalogueTest, SchemeWithoutTabSizeShowsFourInTheEditor)
{
    // The editor's half; a formatting run completes the set with 1 instead.
    Kempt::PropertySet set;
    set.setInt(P::CONVERT_WS, 0);
    EXPECT_TRUE(fillFallbacks(set, Page::GLOBALS));
    std::int32_t tabSize = 0;
    EXPECT_TRUE(set.getInt(P::TAB_SIZE, tabSize));
    EXPECT_EQ(tabSize, 4);
    std::int32_t convert = -1;
    set.getInt(P::CONVERT_WS, convert);
    EXPECT_EQ(convert, 0); // present values stay
    std::string margin = "x";
    EXPECT_TRUE(set.getString(P::LEFT_MARGIN, margin));
    EXPECT_EQ(margin, "");
    bool dnf = true;
    EXPECT_TRUE(set.getBool(P::GLOBALS_DO_NOT_FORMAT, dnf));
    EXPECT_FALSE(dnf);
    EXPECT_EQ(set.count(), propertiesOn(Page::GLOBALS).size());
    // Everything there now: a second load changes nothing.
    EXPECT_FALSE(fillFallbacks(set, Page::GLOBALS));
}

TEST(PropertyCatalogueTest, SchemeWithoutAlignPpdLeftMostOpensOnAlignToLeftMostMarginAndCountsAsChanged)
{
    Kempt::PropertySet set;
    set.setBool(P::PPD_DO_NOT_FORMAT, false);
    EXPECT_EQ(preprocessorIndentRadio(set), 0);
    EXPECT_TRUE(fillFallbacks(set, Page::PREPROCESSOR));
    EXPECT_EQ(preprocessorIndentRadio(set), 1);
    EXPECT_STREQ(PREPROCESSOR_INDENT_LABELS[preprocessorIndentRadio(set)], "Align to left-most margin");
    set.setBool(P::PPD_DO_NOT_FORMAT, true);
    EXPECT_STREQ(PREPROCESSOR_INDENT_LABELS[preprocessorIndentRadio(set)], "Leave as is");
}

TEST(PropertyCatalogueTest, FallbacksGoToTheMapOfTheKind)
{
    // A value of the wrong type does not count as present.
    Kempt::PropertySet set;
    set.setString(P::TAB_SIZE, "4");
    EXPECT_TRUE(fillFallbacks(set, Page::GLOBALS));
    std::int32_t tabSize = 0;
    EXPECT_TRUE(set.getInt(P::TAB_SIZE, tabSize));
    // Unused and no-page names are never filled in.
    Kempt::PropertySet cs;
    fillFallbacks(cs, Page::CONTROL_STATEMENTS);
    EXPECT_FALSE(cs.exists(P::WS_BETWEEN_CS_CASES));
    EXPECT_FALSE(cs.exists(P::ALIGN_CS_FOR_CLAUSES_LEFT));
}

TEST(PropertyCatalogueTest, AmountsReadAndWrite)
{
    EXPECT_EQ(amountFromText(""), (Amount{0, AmountUnit::SPACES}));
    EXPECT_EQ(amountFromText("    "), (Amount{4, AmountUnit::SPACES}));
    EXPECT_EQ(amountFromText("\t\t"), (Amount{2, AmountUnit::TABS}));
    EXPECT_EQ(amountFromText(" \t"), (Amount{2, AmountUnit::TABS})); // a tab anywhere makes it tabs
    EXPECT_EQ(amountText({3, AmountUnit::SPACES}), "   ");
    EXPECT_EQ(amountText({2, AmountUnit::TABS}), "\t\t");
    EXPECT_EQ(amountText({0, AmountUnit::TABS}), "");
    EXPECT_STREQ(AMOUNT_UNIT_LABELS[0], "spaces");
    EXPECT_STREQ(AMOUNT_UNIT_LABELS[1], "tabs");
    EXPECT_THROW(amountText({-1, AmountUnit::SPACES}), Varnel::ContractViolation);
}

TEST(PropertyCatalogueTest, KindAndRoleNames)
{
    EXPECT_STREQ(kindName(PropertyKind::WHITE_SPACE), "White space");
    EXPECT_STREQ(kindName(PropertyKind::AMOUNT), "Amount");
    EXPECT_STREQ(roleName(PropertyRole::UNUSED), "kept, unused");
}

} // namespace
