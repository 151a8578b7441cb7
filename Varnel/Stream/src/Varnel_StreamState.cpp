// Copying the writer's setup of one indenting stream to another.
#include "Varnel_StreamState.h"

#include "Varnel_OIndentStream.h"

namespace Varnel {

StreamState StreamState::of(const OIndentStream& stream)
{
    StreamState state;
    state.indent = stream.indent();
    state.keepLeadingSpace = stream.keepLeadingSpace();
    state.tabMode = stream.tabMode();
    state.tabSize = stream.tabSize();
    state.lineEnding = stream.lineEnding();
    state.col = stream.col();
    return state;
}

void StreamState::applyTo(OIndentStream& stream) const
{
    stream.setIndent(indent);
    stream.setKeepLeadingSpace(keepLeadingSpace);
    stream.setTabMode(tabMode);
    stream.setTabSize(tabSize);
    stream.setLineEnding(lineEnding);
}

} // namespace Varnel
