// Formatting one text from a stream, the way the command line does it: the
// formatted text goes to `out` only when the whole run succeeds; otherwise
// each message goes to `errors` as one line, and nothing to `out`.
#ifndef APP_TEXTJOB_H
#define APP_TEXTJOB_H

#include "App_FormatFunction.h"
#include "Kempt_PropertySet.h"
#include "Kempt_UpdateFunctor.h"

#include <iosfwd>
#include <string>

namespace App {

// True when the text was formatted and written to `out`. `label` names the
// text in message lines ("<stdin>" for standard input).
// `format` is the pipeline to run.
bool formatText(const std::string& label, std::istream& in, std::ostream& out, std::ostream& errors,
                const Kempt::PropertySet& properties, Kempt::UpdateFunctor& update,
                const FormatFunction& format = engineFormat());

// Writes the syntax tree of the text to `out`, one node per line, as a pass
// sees it (fenced regions folded). A text that does not parse writes its
// message lines to `errors` instead, and the result is false.
bool dumpTreeText(const std::string& label, std::istream& in, std::ostream& out, std::ostream& errors);

} // namespace App

#endif
