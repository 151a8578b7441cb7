// The default progress callback: no display, never cancels.
#include "Kempt_UpdateFunctor.h"

namespace Kempt {

UpdateFunctor::~UpdateFunctor() = default;

bool UpdateFunctor::operator()(const std::string&)
{
    return true;
}

} // namespace Kempt
