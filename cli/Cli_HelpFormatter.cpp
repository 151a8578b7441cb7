#include "Cli_HelpFormatter.h"

namespace Cli {

std::string withoutDefaultSuffix(std::string name)
{
    for (std::size_t open = name.find('{'); open != std::string::npos; open = name.find('{', open)) {
        const std::size_t close = name.find('}', open);
        if (close == std::string::npos)
            break;
        name.erase(open, close - open + 1);
    }
    return name;
}

std::string HelpFormatter::make_option_name(const CLI::Option* option, bool isPositional) const
{
    return withoutDefaultSuffix(CLI::Formatter::make_option_name(option, isPositional));
}

}  // namespace Cli
