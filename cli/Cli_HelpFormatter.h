// The --help layout. CLI11 names an option whose value is optional, such as
// --backup[=EXT], with a default-value suffix ("--backup{}"); the help text
// and the man page made from it show the option as the user types it.
#ifndef CLI_HELPFORMATTER_H
#define CLI_HELPFORMATTER_H

#include <CLI/CLI.hpp>

#include <string>

namespace Cli {

class HelpFormatter : public CLI::Formatter {
public:
    std::string make_option_name(const CLI::Option* option, bool isPositional) const override;
};

// An option's name without the "{default}" suffixes of optional values.
std::string withoutDefaultSuffix(std::string name);

}  // namespace Cli

#endif
