// The diagnostics of a formatting run, as the engine's callers see them.
#ifndef KEMPT_FORMATMESSAGE_H
#define KEMPT_FORMATMESSAGE_H

#include "Trn_FormatMessage.h"

namespace Kempt {

using Trn::FormatMessage;
using Trn::FormatMessageList;
using Trn::messageText;

} // namespace Kempt

#endif
