// The format call for one text: the whole pipeline, from the text of a file to
// its formatted text and messages. It knows no file, dialog or registry.
//
// Protocol: construct on the spot, call format() with `in` at the start of the
// text and an empty message list. On 0, `out` holds the complete formatted
// text and `messages` gained nothing. On any other result nothing was written
// to `out`, and `messages` says why; write the text to disk only on 0.
//
// The pipeline runs up to three passes, each parsing the text left by the one
// before into a fresh tree: the brace rewriter (only when a brace style is
// set), the formatter (always), the line wrapper (only with LINE_WRAP). Text is
// the only thing that passes from one pass to the next.
#ifndef KEMPT_FORMATENGINE_H
#define KEMPT_FORMATENGINE_H

#include "Kempt_BraceEdits.h"
#include "Kempt_FormatMessage.h"
#include "Kempt_FormatSettings.h"
#include "Kempt_UpdateFunctor.h"

#include <cstdint>
#include <iosfwd>
#include <string_view>

namespace Kempt {

// The passes of a run, in their order.
enum class PassKind { REWRITE, FORMAT, WRAP };

// Told of each pass as it starts its parse; for tracing and tests.
class PassObserver {
public:
    virtual ~PassObserver();
    virtual void passStarted(PassKind pass) = 0;
};

class FormatEngine {
public:
    explicit FormatEngine(PassObserver* observer = nullptr) : m_observer(observer) {}

    // 0, or the number of messages after a failure; a cancellation at the
    // first progress call returns 1.
    std::int32_t format(const FormatSettings& settings, std::istream& in, std::ostream& out,
                        FormatMessageList& messages, UpdateFunctor& update) const;

    // The first pass alone: the text as the brace rewriter leaves it, and the
    // braces it added and removed; the text itself, with no edits, when no
    // brace style is set. 0, or the number of messages when the text did not
    // parse. The verification before a file is written compares with it.
    std::int32_t rewriteBraces(const FormatSettings& settings, std::string_view text, BraceRewrite& rewrite,
                               FormatMessageList& messages) const;

    // The two messages of the driver itself.
    static FormatMessage cancelledMessage();
    static FormatMessage rewindFailureMessage();

private:
    PassObserver* m_observer;
};

} // namespace Kempt

#endif
