// The built-in sample texts of the scheme editor's preview, one for each page
// of the editor, in the order of the pages. They are written without
// indentation so that a preview shows what the scheme does. A user's own
// samples (in the settings file) take their place; these serve on first use,
// and the golden cases under tests/golden/schemes format each of them with
// every built-in scheme.
#ifndef KEMPTUI_PREVIEWSAMPLES_H
#define KEMPTUI_PREVIEWSAMPLES_H

#include <string_view>
#include <vector>

namespace KemptUI {

struct PreviewSample {
    std::string_view key;  // "ClassesPreview", ...
    std::string_view text;
};

// All thirteen samples, in page order.
const std::vector<PreviewSample>& previewSamples();

// The sample of `key`, or an empty view when there is none.
std::string_view previewSample(std::string_view key);

} // namespace KemptUI

#endif
