// tidewright-fake: the tidewright command over a stand-in formatter, so that
// tests can show what the command does with output that changes, or that
// breaks the token guarantee. TW_FAKE_FORMAT picks it:
//   squeeze  runs of blanks and tabs become one blank, blanks at line ends go
//            (white space only: the tokens stay)
//   drop     the first ";" is dropped (a formatter bug the verification must catch)
//   (unset)  the real engine
// With the stand-in formatter, a text that holds "FAKE_FAIL" fails with an
// error message at that place, and TW_FAKE_DELAY_MS=N makes every file take
// N milliseconds longer (for tests that interrupt a batch while it runs).
#include "App_FormatFunction.h"
#include "Cli_Run.h"

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <sstream>
#include <string>
#include <thread>

namespace {

std::string squeeze(const std::string& text)
{
    std::string out;
    std::string blanks;
    for (const char c : text) {
        if (c == ' ' || c == '\t') {
            blanks = " ";
            continue;
        }
        if (c != '\n' && c != '\r')
            out += blanks;
        blanks.clear();
        out += c;
    }
    return out;
}

std::string dropSemicolon(std::string text)
{
    if (const std::size_t at = text.find(';'); at != std::string::npos)
        text.erase(at, 1);
    return text;
}

} // namespace

int main(int argc, char** argv)
{
    const char* fake = std::getenv("TW_FAKE_FORMAT");
    const std::string kind = fake ? fake : "";
    if (kind.empty())
        return Cli::runCommandLine(argc, argv, App::engineFormat());
    const char* delayText = std::getenv("TW_FAKE_DELAY_MS");
    const int delay = delayText ? std::atoi(delayText) : 0;
    return Cli::runCommandLine(argc, argv,
                               [kind, delay](const Kempt::FormatSettings&, std::istream& in, std::ostream& out,
                                             Kempt::FormatMessageList& messages,
                                             Kempt::UpdateFunctor&) -> std::int32_t {
                                   if (delay > 0)
                                       std::this_thread::sleep_for(std::chrono::milliseconds(delay));
                                   std::ostringstream text;
                                   text << in.rdbuf();
                                   const std::string input = text.str();
                                   if (const std::size_t at = input.find("FAKE_FAIL"); at != std::string::npos) {
                                       const auto line = static_cast<std::int32_t>(
                                           1 + std::count(input.begin(), input.begin() + static_cast<long>(at), '\n'));
                                       messages.push_back(Kempt::FormatMessage::composed("fake failure", {line, 1}));
                                       return 1;
                                   }
                                   out << (kind == "drop" ? dropSemicolon(input) : squeeze(input));
                                   return 0;
                               });
}
