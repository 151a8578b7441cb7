// The engine's public header: everything a front end needs to format a text.
//
//   Kempt::FormatSettings settings(properties);   // a scheme, with the default markers
//   Kempt::FormatMessageList messages;
//   Kempt::UpdateFunctor noProgress;
//   std::int32_t r = Kempt::FormatEngine().format(settings, in, out, messages, noProgress);
//   // r == 0: `out` holds the formatted text; otherwise `messages` says why.
//
//   Kempt::TokenComparison c = Kempt::compareTokens(input, output);
//   // c.same: the run changed white space only; otherwise c.describe() says where not.
#ifndef KEMPT_H
#define KEMPT_H

#include "Kempt_Analysis.h"
#include "Kempt_BraceEdits.h"
#include "Kempt_FormatCheck.h"
#include "Kempt_FormatEngine.h"
#include "Kempt_FormatMessage.h"
#include "Kempt_FormatSettings.h"
#include "Kempt_NormaliseProperties.h"
#include "Kempt_PropertyEffect.h"
#include "Kempt_PropertyNames.h"
#include "Kempt_PropertySet.h"
#include "Kempt_TokenComparison.h"
#include "Kempt_UpdateFunctor.h"

#endif
