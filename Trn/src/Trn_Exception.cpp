// The texts of the token layer's exceptions.
#include "Trn_Exception.h"

#include <utility>

namespace Trn {

Exception::Exception(std::string text) : m_text(std::move(text)) {}

std::string Exception::what() const
{
    return m_text;
}

InvalidValueType::InvalidValueType()
    : Exception("Invalid value() function called for Token object.")
{
}

AlreadyExistsException::AlreadyExistsException()
    : Exception("Attempt to add an object to a collection that already exists in that collection.")
{
}

InvalidParameterException::InvalidParameterException()
    : Exception("InvalidParameterExecption")
{
}

} // namespace Trn
