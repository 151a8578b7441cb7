// tw-corpus-stats: parses every file under a directory and prints how many
// files and bytes parse, and the most frequent causes of failure with an
// example each. A cause is the first message a failing file reports, with the
// offending token's text cut off composed messages so that like failures
// group.
//
//   tw-corpus-stats [--list] DIR [N]     N causes (default 10)
//
// With --list, every failing file follows, one line each:
// "path(line:col): message | source line".
#include "Cpp_Lexer.h"
#include "Cpp_Parser.h"
#include "Cpp_RootNode.h"
#include "Varnel_IMemBuf.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <map>
#include <sstream>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;

struct Cause {
    int count = 0;
    std::string example; // path(line:col): source line
};

std::string readFile(const fs::path& path)
{
    std::ifstream in(path, std::ios::binary);
    std::ostringstream s;
    s << in.rdbuf();
    return s.str();
}

// The message without the part that names the offending token.
std::string causeOf(const Trn::FormatMessage& message)
{
    std::string text = message.code != 0 ? "code " + std::to_string(message.code) + ": " + message.text : message.text;
    for (const char* cut : {"Got: ", "Found: ", "Token: \"", "Got: \""}) {
        const std::size_t at = text.find(cut);
        if (at != std::string::npos)
            return text.substr(0, at + std::char_traits<char>::length(cut)) + "...";
    }
    return text;
}

std::string lineOf(const std::string& text, int line)
{
    std::size_t begin = 0;
    for (int n = 1; n < line && begin != std::string::npos; ++n) {
        begin = text.find('\n', begin);
        if (begin != std::string::npos)
            ++begin;
    }
    if (begin == std::string::npos)
        return std::string();
    const std::size_t end = text.find('\n', begin);
    std::string source = text.substr(begin, end == std::string::npos ? std::string::npos : end - begin);
    if (source.size() > 100)
        source = source.substr(0, 100) + "...";
    return source;
}

} // namespace

int main(int argc, char** argv)
{
    std::vector<std::string> arguments(argv + 1, argv + argc);
    const bool listing = !arguments.empty() && arguments.front() == "--list";
    if (listing)
        arguments.erase(arguments.begin());
    if (arguments.empty() || arguments.size() > 2
        || (arguments.size() == 2 && arguments[1].find_first_not_of("0123456789") != std::string::npos)) {
        std::cerr << "usage: tw-corpus-stats [--list] DIR [N]\n";
        return 2;
    }
    const std::string& dir = arguments.front();
    const std::size_t shown = arguments.size() > 1 ? static_cast<std::size_t>(std::stoul(arguments[1])) : 10;
    std::vector<fs::path> files;
    std::error_code error;
    for (fs::recursive_directory_iterator it(dir, error), end; !error && it != end; it.increment(error))
        if (it->is_regular_file() && it->path().filename() != "MANIFEST")
            files.push_back(it->path());
    if (error) {
        std::cerr << "tw-corpus-stats: " << dir << ": " << error.message() << '\n';
        return 2;
    }
    std::sort(files.begin(), files.end());

    std::map<std::string, Cause> causes;
    std::vector<std::string> failures;
    std::size_t parsed = 0;
    std::size_t bytes = 0;
    std::size_t parsedBytes = 0;
    double seconds = 0;
    Cpp::Parser parser;
    for (const fs::path& path : files) {
        const std::string text = readFile(path);
        bytes += text.size();
        Varnel::IMemStream in(text);
        Cpp::Lexer lexer(in);
        Cpp::RootNode root;
        Trn::FormatMessageList messages;
        const auto start = std::chrono::steady_clock::now();
        parser.parse(lexer, root, messages);
        seconds += std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
        messages.remove_if([](const Trn::FormatMessage& m) { return m.code == 2; });
        if (messages.empty()) {
            ++parsed;
            parsedBytes += text.size();
            continue;
        }
        const Trn::FormatMessage& first = messages.front();
        const std::string place = path.string() + "(" + std::to_string(first.position.line) + ":"
            + std::to_string(first.position.col) + "): ";
        Cause& cause = causes[causeOf(first)];
        if (cause.count++ == 0)
            cause.example = place + lineOf(text, first.position.line);
        if (listing)
            failures.push_back(place + first.text + " | " + lineOf(text, first.position.line));
    }

    const auto percent = [](std::size_t part, std::size_t whole) {
        return whole == 0 ? 0.0 : 100.0 * static_cast<double>(part) / static_cast<double>(whole);
    };
    std::printf("files: %zu\nparsed: %zu (%.1f%%)\nfailed: %zu\nbytes: %zu\nparsed bytes: %zu (%.1f%%)\n"
                "parse time: %.2f s (%.1f MB/s)\n",
                files.size(), parsed, percent(parsed, files.size()), files.size() - parsed, bytes, parsedBytes,
                percent(parsedBytes, bytes), seconds,
                seconds > 0 ? static_cast<double>(bytes) / 1e6 / seconds : 0.0);
    std::vector<std::pair<std::string, Cause>> sorted(causes.begin(), causes.end());
    std::sort(sorted.begin(), sorted.end(), [](const auto& a, const auto& b) { return a.second.count > b.second.count; });
    std::printf("\nmost frequent causes of failure (first message of a file):\n");
    for (std::size_t i = 0; i < sorted.size() && i < shown; ++i)
        std::printf("%5d  %s\n       e.g. %s\n", sorted[i].second.count, sorted[i].first.c_str(),
                    sorted[i].second.example.c_str());
    if (listing) {
        std::printf("\nfailing files (first message):\n");
        for (const std::string& line : failures)
            std::printf("%s\n", line.c_str());
    }
    return 0;
}
