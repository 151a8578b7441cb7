// tidewright-fake: the tidewright command over a stand-in formatter, so that
// tests can show what the command does with output that changes, or that
// breaks the token guarantee. TW_FAKE_FORMAT picks it:
//   squeeze  runs of blanks and tabs become one blank, blanks at line ends go
//            (white space only: the tokens stay)
//   drop     the first ";" is dropped (a formatter bug the verification must catch)
//   (unset)  the real engine
#include "App_FormatFunction.h"
#include "Cli_Run.h"

#include <cstdlib>
#include <sstream>
#include <string>

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
    return Cli::runCommandLine(argc, argv,
                               [kind](const Kempt::FormatSettings&, std::istream& in, std::ostream& out,
                                      Kempt::FormatMessageList&, Kempt::UpdateFunctor&) -> std::int32_t {
                                   std::ostringstream text;
                                   text << in.rdbuf();
                                   out << (kind == "drop" ? dropSemicolon(text.str()) : squeeze(text.str()));
                                   return 0;
                               });
}
