// A private output stream that continues where another indenting stream
// stands: same indent string, keep-leading-space flag, tab mode and tab size,
// starting at the same column. A pass builds text in it, takes the string and
// writes that literally to the real stream, so the text comes out as it would
// have there. Line breaks stay "\n" here; the real stream writes the line
// ending.
//
//   Kempt::ScratchStream scratch(Varnel::StreamState::of(out));
//   scratch.out() << text;
//   out.writeLiteral(scratch.str());
#ifndef KEMPT_SCRATCHSTREAM_H
#define KEMPT_SCRATCHSTREAM_H

#include "Varnel_OIndentStream.h"
#include "Varnel_StreamState.h"

#include <sstream>
#include <string>

namespace Kempt {

class ScratchStream {
public:
    explicit ScratchStream(const Varnel::StreamState& state) : m_out(m_target, withNewlines(state)) {}
    ScratchStream(const ScratchStream&) = delete;
    ScratchStream& operator=(const ScratchStream&) = delete;

    Varnel::OIndentStream& out() { return m_out; }

    // Everything written so far, held blanks included.
    std::string str()
    {
        m_out.flush();
        return m_target.str();
    }

private:
    static Varnel::StreamState withNewlines(Varnel::StreamState state)
    {
        state.lineEnding = Varnel::LineBuf::NATIVE;
        return state;
    }

    std::ostringstream m_target;
    Varnel::OIndentStream m_out;
};

} // namespace Kempt

#endif
