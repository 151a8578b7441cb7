// The C++ lexer: characters in, Trn::Token out, for the parser, the protected
// range scanner and every pass that looks at the tokens of a gap.
//
// It never sees a preprocessor: a directive line is one token, macros are
// identifiers, and all branches of a conditional are read alike. White space is
// not a token; it survives only inside comment, directive and literal tokens.
// A qualified name is one token ("A::B::c"), except that "new", "delete" and
// "operator" after a "::" are split off as keyword tokens ("X", "::operator").
//
// Positions: a token starts at the reader's position just after its first
// character and ends at the position just after its last one. Columns count
// characters from 0, so the first character of a line has column 1 and a
// token's end column is the column of its last character. A token whose last
// character is a newline ends at column 0 of the next line.
//
// The lexer reports nothing: what it cannot read it drops, or gives as
// INVALID_TOKEN; after the end of input it gives END_OF_FILE for ever.
//
// A lexer over a stream that can be set back can read its text again from the
// start (restart()): the parser does so when it reads a refused text a second
// time by wider rules.
#ifndef CPP_LEXER_H
#define CPP_LEXER_H

#include "Cpp_TokenType.h"
#include "Trn_Lexer.h"
#include "Varnel_ITextDocStream.h"

#include <iosfwd>
#include <istream>
#include <optional>
#include <vector>

namespace Cpp {

class Lexer : public Trn::Lexer {
public:
    // Does not own the stream; it must outlive the lexer.
    explicit Lexer(std::istream& in);
    ~Lexer() override;

    Trn::Token next() override;
    // With folding on, the `#else` or `#elif` of a conditional and everything
    // up to and including its `#endif` come as one PREPROC_DIRECTIVE token
    // spanning them all (its text that of the `#else` line), so that only the
    // first branch is read as code. Conditionals opened by `#if 0` are left
    // alone: the parser takes those whole. Off by default; restart() keeps it.
    void setFoldingElseBranches(bool on) { m_foldElse = on; }
    // "line:\t" L "\tcol:\t" C "\tlastlinecol:\t" N "\n"
    void dump(std::ostream& out) const override;

    // Whether the stream can be set back to where this lexer began.
    bool canRestart() const { return m_start != std::streampos(std::streamoff(-1)); }
    // Sets the stream back to where this lexer began and reads from there again,
    // from line 1, column 0. False, with nothing changed, when the stream
    // cannot be set back.
    bool restart();

private:
    int read() { return m_input->buf().getChar(); }
    int peek() { return m_input->buf().peekChar(); }
    void unread() { m_input->buf().ungetChar(); }
    Trn::Position position() const { return {m_input->line(), m_input->col()}; }

    // Each scanner starts with its first character already read and gives true
    // when it stored a token in `out`; false means "no token, go on".
    bool scanComment(int first, Trn::Token& out);
    bool scanName(int first, Trn::Token& out);
    bool scanNumber(int first, Trn::Token& out);
    bool scanString(Trn::Token& out);
    bool scanChar(Trn::Token& out);
    bool scanDirective(Trn::Token& out);
    Trn::Token nextToken();
    // Follows the conditional directive `t`; returns the folded token when
    // it opens an other branch to fold.
    Trn::Token foldConditional(Trn::Token t);
    bool scanOperator(int first, Trn::Token& out);
    bool scanContinuation(Trn::Token& out);

    std::istream& m_source;
    std::streampos m_start; // where the text began in m_source; -1 when it cannot be set back
    // Always engaged; optional only so that restart() can build it anew.
    std::optional<Varnel::ITextDocStream> m_input;
    Trn::Token m_pending; // a token already read, given out by the next call
    bool m_foldElse = false;
    // With folding: for each open conditional, whether it is an `#if 0`.
    std::vector<bool> m_conditionals;
};

} // namespace Cpp

#endif
