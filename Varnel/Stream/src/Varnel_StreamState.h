// A snapshot of what an indenting stream's writer has set up: indent string,
// keep-leading-space flag, tab mode, tab size, line ending and the column
// reached. It carries these from one stream to another, so that text built in
// a scratch stream comes out as it would have on the real one.
//
//   Varnel::StreamState state = Varnel::StreamState::of(out);
//   std::ostringstream scratch;
//   Varnel::OIndentStream s(scratch, state); // starts at out's column
#ifndef VARNEL_STREAMSTATE_H
#define VARNEL_STREAMSTATE_H

#include "Varnel_LineBuf.h"

#include <cstdint>
#include <string>

namespace Varnel {

class OIndentStream;

struct StreamState {
    std::string indent;
    bool keepLeadingSpace = false;
    std::int32_t tabMode = 0;
    std::int32_t tabSize = 1;
    std::int32_t lineEnding = LineBuf::NATIVE;
    std::int32_t col = 0;

    static StreamState of(const OIndentStream& stream);

    // Sets indent, flag, tab mode, tab size and line ending of `stream`; a
    // stream's column is its own and is left alone.
    void applyTo(OIndentStream& stream) const;

    friend bool operator==(const StreamState&, const StreamState&) = default;
};

} // namespace Varnel

#endif
