// Diagnostics of a formatting run. The parser appends them in order of
// detection; the driver hands them back to the caller, who prints them.
// Severity 1 is information, 2 a warning, 3 an error; everything the parser
// reports is 3. A code of 1 to 15 names a fixed text (messageText), 0 means
// the reporter composed the text itself.
#ifndef TRN_FORMATMESSAGE_H
#define TRN_FORMATMESSAGE_H

#include "Trn_Position.h"

#include <cstdint>
#include <list>
#include <string>
#include <utility>

namespace Trn {

struct FormatMessage {
    enum Severity : std::int32_t { INFORMATION = 1, WARNING = 2, ERROR = 3 };

    std::int32_t severity = ERROR;
    Position position; // of the offending token; 0, 0 when the message has no place
    std::int32_t code = 0;
    std::string text;

    FormatMessage() = default;
    FormatMessage(std::int32_t sev, Position pos, std::int32_t c, std::string t)
        : severity(sev), position(pos), code(c), text(std::move(t))
    {
    }

    // An error with the fixed text of a code.
    static FormatMessage coded(std::int32_t code, Position pos);
    // An error whose text the reporter composed.
    static FormatMessage composed(std::string text, Position pos);

    friend bool operator==(const FormatMessage&, const FormatMessage&) = default;
};

using FormatMessageList = std::list<FormatMessage>;

// The text of a coded message; "Unknown error." outside 1..15.
std::string messageText(std::int32_t code);

} // namespace Trn

#endif
