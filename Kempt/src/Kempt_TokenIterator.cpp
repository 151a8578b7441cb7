// Token pairs over a gap, with fenced regions folded into one empty comment.
#include "Kempt_TokenIterator.h"

#include "Cpp_CommentText.h"
#include "Kempt_CppFormatterConfig.h"
#include "Varnel_Contract.h"
#include "Varnel_Text.h"

#include <vector>

namespace Kempt {

namespace {

// The default markers, kept for the life of the process so that an iterator
// can borrow them instead of copying the list for every gap.
const MarkerList& defaultMarkers()
{
    static const MarkerList MARKERS = defaultRegionMarkers();
    return MARKERS;
}

} // namespace

TokenIterator::TokenIterator(const std::string& text) : TokenIterator(text, defaultMarkers()) {}

TokenIterator::TokenIterator(const std::string& text, const MarkerList& markers)
    : m_markers(markers), m_text(text), m_in(m_text), m_lexer(m_in)
{
}

TokenIterator& TokenIterator::advance()
{
    if (m_left.type() == Cpp::END_OF_FILE) {
        m_left = nextToken();
        m_right = nextToken();
    } else if (more()) {
        m_left = std::move(m_right);
        m_right = nextToken();
    }
    return *this;
}

namespace {

bool isComment(std::int32_t type)
{
    return type == Cpp::LINE_COMMENT || type == Cpp::BLOCK_COMMENT;
}

// The comment's words: its text without delimiters, trimmed at both ends.
// The delimiters come off as they do for a comment node's content.
std::string commentWords(const Trn::Token& comment)
{
    std::string text = comment.text();
    Cpp::stripCommentDelimiters(text);
    return std::string(Varnel::trim(text));
}

const MarkerPair* findBeginMarker(const MarkerList& markers, const std::string& words)
{
    for (const MarkerPair& pair : markers)
        if (beginsWithMarker(words, pair.first))
            return &pair;
    return nullptr;
}

} // namespace

Trn::Token TokenIterator::nextToken()
{
    std::vector<std::string> expectedEnds;
    Trn::Position regionStart;
    for (;;) {
        Trn::Token token = m_lexer.next();
        // The end of the text ends an open region too, without a word.
        if (token.type() == Cpp::END_OF_FILE)
            return token;
        if (!isComment(token.type())) {
            if (expectedEnds.empty())
                return token;
            continue;
        }
        const std::string words = commentWords(token);
        // "// TW-FORMAT-OFF for now": a begin marker opens, or nests, a region.
        if (const MarkerPair* pair = findBeginMarker(m_markers, words)) {
            if (expectedEnds.empty())
                regionStart = token.start();
            expectedEnds.push_back(pair->second);
            continue;
        }
        if (expectedEnds.empty())
            return token;
        // "// TW-FORMAT-ON again": the innermost end marker closes its level.
        if (!words.starts_with(expectedEnds.back()))
            continue;
        expectedEnds.pop_back();
        if (expectedEnds.empty())
            return Trn::Token(token.type(), regionStart, token.end(), std::string());
    }
}

bool skipToMatching(TokenIterator& it, std::int32_t left, std::int32_t right)
{
    TW_REQUIRE(left != right);
    int depth = 1;
    const auto count = [&] {
        const std::int32_t type = it.right().type();
        if (type == right)
            --depth;
        else if (type == left)
            ++depth;
    };
    count();
    while (it.more() && depth > 0) {
        it.advance();
        if (!it.more())
            break;
        count();
    }
    return depth == 0;
}

} // namespace Kempt
