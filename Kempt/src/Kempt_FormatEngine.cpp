// The format driver: the pass sequence and the analysis that precedes each pass.
#include "Kempt_FormatEngine.h"

#include "Cpp_Lexer.h"
#include "Cpp_Parser.h"
#include "Cpp_RootNode.h"
#include "Kempt_CppFormatter.h"
#include "Kempt_CppLineWrapper.h"
#include "Kempt_CppRewriter.h"
#include "Kempt_PropertyNames.h"
#include "Kempt_ProtectedRangeScanner.h"
#include "Kempt_SourceText.h"
#include "Varnel_Contract.h"

#include <array>
#include <istream>
#include <ostream>
#include <sstream>

namespace Kempt {

PassObserver::~PassObserver() = default;

FormatMessage FormatEngine::cancelledMessage()
{
    return FormatMessage(FormatMessage::INFORMATION, Trn::Position(), 0, "Formatting cancelled at user's request.");
}

FormatMessage FormatEngine::rewindFailureMessage()
{
    return FormatMessage(FormatMessage::ERROR, Trn::Position(), 0, "Unable to rewind input.");
}

namespace {

// The number of characters from the read position of `in` to its end, or -1
// when the stream cannot tell (a pipe). The read position is left as it was.
std::streamoff remainingSize(std::istream& in)
{
    std::streambuf* buf = in.rdbuf();
    if (!buf)
        return -1;
    const std::streampos here = buf->pubseekoff(0, std::ios_base::cur, std::ios_base::in);
    if (here == std::streampos(-1))
        return -1;
    const std::streampos end = buf->pubseekoff(0, std::ios_base::end, std::ios_base::in);
    buf->pubseekpos(here, std::ios_base::in);
    return end == std::streampos(-1) ? -1 : std::streamoff(end - here);
}

// The line break a text uses most: "\r\n", "\r" or "\n" (ties go in that
// order).
std::string dominantLineBreak(std::string_view text)
{
    std::size_t crlf = 0;
    std::size_t cr = 0;
    std::size_t lf = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '\r') {
            if (i + 1 < text.size() && text[i + 1] == '\n') {
                ++crlf;
                ++i;
            } else {
                ++cr;
            }
        } else if (text[i] == '\n') {
            ++lf;
        }
    }
    if (crlf >= cr && crlf >= lf)
        return "\r\n";
    return cr >= lf ? "\r" : "\n";
}

// `text` with each "\n" written as `lineBreak`.
std::string withLineBreaks(const std::string& text, const std::string& lineBreak)
{
    if (lineBreak == "\n")
        return text;
    std::string out;
    out.reserve(text.size() + text.size() / 16);
    for (const char c : text) {
        if (c == '\n')
            out += lineBreak;
        else
            out += c;
    }
    return out;
}

// One run of the pipeline: the two whole-text streams and the objects that
// serve every pass of the run.
class PipelineRun {
public:
    PipelineRun(const FormatSettings& settings, FormatMessageList& messages, PassObserver* observer)
        : m_settings(settings), m_messages(messages), m_observer(observer), m_scanner(settings.markers())
    {
    }

    // Copies all of `in` into the source stream. The text is read into a
    // string sized once where the stream can tell its length, so a large file
    // is not copied again and again while a buffer grows.
    void load(std::istream& in)
    {
        std::string text;
        const std::streamoff size = remainingSize(in);
        if (size > 0)
            text.reserve(static_cast<std::size_t>(size));
        char chunk[1 << 16];
        std::streambuf* buf = in.rdbuf();
        for (std::streamsize got; buf && (got = buf->sgetn(chunk, sizeof chunk)) > 0;)
            text.append(chunk, static_cast<std::size_t>(got));
        m_source.str(std::move(text));
        m_source.clear();
    }

    // Parses the current text, prints the next one, and makes it current.
    // 0, or the number of messages when the text did not parse.
    std::int32_t runPass(PassKind pass)
    {
        if (m_observer)
            m_observer->passStarted(pass);
        Cpp::RootNode root;
        if (const std::int32_t failed = analyse(root))
            return failed;
        print(pass, root);
        moveAcross();
        return 0;
    }

    // The text the run holds now: the input, or what the last pass printed.
    std::string_view current() const { return m_source.view(); }

    // Where the brace pass tells what it changed; null: nowhere.
    void recordBraceEdits(BraceEdits* edits) { m_braceEdits = edits; }

    // Whether the last wrap pass broke a line.
    bool wrapBrokeLines() const { return m_wrapBrokeLines; }

    void writeResult(std::ostream& out)
    {
        const std::string_view text = m_source.view();
        out.write(text.data(), static_cast<std::streamsize>(text.size()));
        out.flush();
    }

private:
    std::int32_t fail()
    {
        return static_cast<std::int32_t>(m_messages.size());
    }

    // Clears the state and seeks the input to the start of the text.
    bool rewind()
    {
        m_source.clear();
        m_source.seekg(0);
        return !m_source.fail() && !m_source.bad();
    }

    // The analysis sequence: parse, drop code 2, stop on any message, then find
    // the fenced regions of the text.
    std::int32_t analyse(Cpp::RootNode& root)
    {
        FormatMessageList local;
        {
            Cpp::Lexer lexer(m_source);
            m_parser.parse(lexer, root, local);
        }
        // Code 2 marks a head taken for a function-like macro invocation; it never fails a run.
        local.remove_if([](const FormatMessage& m) { return m.code == 2; });
        if (!local.empty()) {
            m_messages.splice(m_messages.end(), local);
            return fail();
        }
        if (!rewind()) {
            m_messages.push_back(FormatEngine::rewindFailureMessage());
            return fail();
        }
        m_scanner.scan(m_source.view(), root);
        if (!rewind()) {
            m_messages.push_back(FormatEngine::rewindFailureMessage());
            return fail();
        }
        return 0;
    }

    // Prints the next text of the pass from the tree of the current one. The
    // rewrite pass runs the brace rewriter, the format pass the formatter,
    // the wrap pass the line wrapper.
    void print(PassKind pass, Cpp::RootNode& root)
    {
        const std::string_view text = m_source.view();
        reserveResult(text.size());
        if (pass == PassKind::REWRITE) {
            CppRewriter rewriter(m_settings, std::string(text), m_result);
            root.accept(rewriter);
            if (m_braceEdits)
                *m_braceEdits = rewriter.edits();
        } else if (pass == PassKind::WRAP) {
            CppLineWrapper wrapper(m_settings, std::string(text), m_result);
            root.accept(wrapper);
            m_wrapBrokeLines = wrapper.changedText();
        } else {
            CppFormatter formatter(std::string(text), m_result, m_settings);
            root.accept(formatter);
        }
        m_result.flush();
        keepLineBreaks(text);
    }

    // The formatter writes "\n" for every line break. The text keeps the
    // line breaks of its source: a text whose lines did not change is the
    // source itself, byte for byte, whatever mix of line breaks it has; a
    // changed one gets the source's most frequent kind.
    void keepLineBreaks(std::string_view source)
    {
        if (source.find('\r') == std::string_view::npos)
            return;
        const std::string formatted = std::move(m_result).str();
        if (formatted == normaliseLineBreaks(source)) {
            m_result.str(std::string(source));
            return;
        }
        m_result.str(withLineBreaks(formatted, dominantLineBreak(source)));
    }

    // Gives the result stream room for a text a little longer than the source,
    // so that printing a pass does not grow it step by step.
    void reserveResult(std::size_t sourceSize)
    {
        std::string room;
        room.reserve(sourceSize + sourceSize / 8 + 256);
        m_result.str(std::move(room));
    }

    // The result of a pass becomes the source of the next one, without a copy.
    void moveAcross()
    {
        m_source.str(std::move(m_result).str());
        m_source.clear();
        m_result.str(std::string());
        m_result.clear();
    }

    const FormatSettings& m_settings;
    FormatMessageList& m_messages;
    PassObserver* m_observer;
    BraceEdits* m_braceEdits = nullptr;
    bool m_wrapBrokeLines = false;
    ProtectedRangeScanner m_scanner;
    Cpp::Parser m_parser;
    std::stringstream m_source{std::ios_base::in | std::ios_base::out | std::ios_base::binary};
    std::stringstream m_result{std::ios_base::in | std::ios_base::out | std::ios_base::binary};
};

// The three brace style properties must lie in 0..2.
bool braceStylesSet(const FormatSettings& settings)
{
    bool anySet = false;
    for (const char* name : {Prop::IF_ELSE_CS_SINGLE_STMT_BRACE_STYLE, Prop::FOR_CS_SINGLE_STMT_BRACE_STYLE,
                             Prop::WHILE_CS_SINGLE_STMT_BRACE_STYLE}) {
        std::int32_t style = 0;
        settings.getInt(name, style);
        if (style < 0 || style > 2)
            TW_CHECK(false);
        anySet = anySet || style != 0;
    }
    return anySet;
}

} // namespace

std::int32_t FormatEngine::format(const FormatSettings& settings, std::istream& in, std::ostream& out,
                                  FormatMessageList& messages, UpdateFunctor& update) const
{
    PipelineRun run(settings, messages, m_observer);
    run.load(in);

    if (!update("Analyzing file:\n%s")) {
        messages.push_back(cancelledMessage());
        return 1;
    }
    if (braceStylesSet(settings)) {
        if (const std::int32_t failed = run.runPass(PassKind::REWRITE))
            return failed;
    }
    if (!update("Formatting file:\n%s")) {
        messages.push_back(cancelledMessage());
        return static_cast<std::int32_t>(messages.size());
    }
    if (const std::int32_t failed = run.runPass(PassKind::FORMAT))
        return failed;

    bool lineWrap = false;
    settings.getBool(Prop::LINE_WRAP, lineWrap);
    if (lineWrap) {
        if (const std::int32_t failed = run.runPass(PassKind::WRAP))
            return failed;
        // Broken lines are laid out by the format pass once more and wrapped
        // again, so that formatting the result a second time changes nothing.
        if (run.wrapBrokeLines()) {
            if (const std::int32_t failed = run.runPass(PassKind::FORMAT))
                return failed;
            if (const std::int32_t failed = run.runPass(PassKind::WRAP))
                return failed;
        }
    }
    run.writeResult(out);
    return 0;
}

std::int32_t FormatEngine::rewriteBraces(const FormatSettings& settings, std::string_view text, BraceRewrite& rewrite,
                                         FormatMessageList& messages) const
{
    rewrite = BraceRewrite();
    PipelineRun run(settings, messages, m_observer);
    std::istringstream in{std::string(text)};
    run.load(in);
    if (braceStylesSet(settings)) {
        run.recordBraceEdits(&rewrite.edits);
        if (const std::int32_t failed = run.runPass(PassKind::REWRITE))
            return failed;
    }
    rewrite.text = std::string(run.current());
    return 0;
}

} // namespace Kempt
