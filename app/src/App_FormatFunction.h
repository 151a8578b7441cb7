// The format pipeline as the batch front calls it: FormatEngine::format by
// default. A test puts a formatter of its own in its place, to show what the
// front does with output that the engine of the day would not give.
#ifndef APP_FORMATFUNCTION_H
#define APP_FORMATFUNCTION_H

#include "Kempt_FormatMessage.h"
#include "Kempt_FormatSettings.h"
#include "Kempt_UpdateFunctor.h"

#include <cstdint>
#include <functional>
#include <iosfwd>

namespace App {

using FormatFunction = std::function<std::int32_t(const Kempt::FormatSettings&, std::istream&, std::ostream&,
                                                  Kempt::FormatMessageList&, Kempt::UpdateFunctor&)>;

// Kempt::FormatEngine().format.
FormatFunction engineFormat();

} // namespace App

#endif
