// A unified diff of a file's text before and after formatting, in the form
// that `patch -p0` applies: "--- PATH", "+++ PATH", then hunks with three
// lines of context. Lines are compared with their line ends, so a change of
// CR LF to LF shows; a last line without a newline is marked with
// "\ No newline at end of file". The line matching is dtl's.
#ifndef APP_UNIFIEDDIFF_H
#define APP_UNIFIEDDIFF_H

#include <string>
#include <string_view>

namespace App {

struct DiffStyle {
    bool colour = false; // ANSI colours: headers bold, hunk heads cyan, removed red, added green
    int context = 3;
};

// The diff of `before` and `after` under the name `path`; empty when they
// are equal.
std::string unifiedDiff(const std::string& path, std::string_view before, std::string_view after,
                        const DiffStyle& style = {});

} // namespace App

#endif
