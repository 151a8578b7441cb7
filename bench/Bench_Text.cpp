// Generating benchmark texts.
#include "Bench_Text.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

namespace Bench {

std::string generatedCpp(std::size_t bytes)
{
    std::string text;
    text.reserve(bytes + 4096);
    text += "#include <string>\n#include <vector>\n\n";
    for (unsigned n = 0; text.size() < bytes; ++n) {
        const std::string id = std::to_string(n);
        text += "// Widget " + id + ": a class with members, control flow and literals.\n";
        text += "namespace ns" + id + " {\n";
        text += "class Widget" + id + " : public Base<int, std::string>\n{\npublic:\n";
        text += "    explicit Widget" + id + "(int size) : m_size(size), m_name(\"widget " + id + "\") {}\n";
        text += "    virtual ~Widget" + id + "() {}\n";
        text += "    int compute(const std::vector<double>& values, char sep = '\\t') const\n    {\n";
        text += "        /* accumulate the values\n           with a running total */\n";
        text += "        double total = 0.0e+0;\n";
        text += "        for (std::size_t i = 0; i < values.size(); ++i)\n";
        text += "            total += values[i] * 1.5f - (i << 2) % 0x1Fu;\n";
        text += "        if (total >= 100 && m_size != 0)\n            return static_cast<int>(total) / m_size;\n";
        text += "        else if (sep == '\\n' || !m_name.empty())\n            return -1;\n";
        text += "        switch (m_size) {\n        case 1: return 1;\n        default: break;\n        }\n";
        text += "        return m_size ? ns::value<" + id + ">::get() : this->m_size->*ptr;\n    }\n";
        text += "private:\n    int m_size;\n    std::string m_name;\n};\n";
        text += "#define WIDGET_" + id + "(x) \\\n    Widget" + id + "(x)\n";
        text += "} // namespace ns" + id + "\n\n";
    }
    return text;
}

std::string bundledSamples()
{
    std::string text;
    std::error_code ec;
    for (const auto& entry : std::filesystem::directory_iterator(TW_EXAMPLES_DIR, ec)) {
        if (!entry.is_regular_file())
            continue;
        std::ifstream in(entry.path(), std::ios::binary);
        std::ostringstream s;
        s << in.rdbuf();
        text += s.str();
    }
    return text;
}

const std::vector<std::string>& corpusTexts()
{
    static const std::vector<std::string> texts = [] {
        std::vector<std::string> result;
        const char* dir = std::getenv("TW_CORPUS_DIR");
        if (!dir || !*dir)
            return result;
        std::vector<std::filesystem::path> files;
        std::error_code ec;
        for (const auto& entry : std::filesystem::recursive_directory_iterator(dir, ec))
            if (entry.is_regular_file() && entry.path().filename() != "MANIFEST")
                files.push_back(entry.path());
        std::sort(files.begin(), files.end());
        for (const auto& path : files) {
            std::ifstream in(path, std::ios::binary);
            std::ostringstream s;
            s << in.rdbuf();
            result.push_back(s.str());
        }
        return result;
    }();
    return texts;
}

std::int64_t corpusBytes()
{
    std::int64_t bytes = 0;
    for (const std::string& text : corpusTexts())
        bytes += static_cast<std::int64_t>(text.size());
    return bytes;
}

} // namespace Bench
