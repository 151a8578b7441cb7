// Contract checks: the one place where a failed assertion becomes an exception.
#include "Varnel_Contract.h"

#include <utility>

namespace Varnel {

ContractViolation::ContractViolation(std::string condition, int line, std::string file)
    : m_condition(std::move(condition)), m_line(line), m_file(std::move(file))
{
}

std::string ContractViolation::what() const
{
    return "DBC Violation: " + m_file + "(" + std::to_string(m_line) + "): " + m_condition;
}

void failContract(const char* conditionText, int line, const char* file)
{
    throw ContractViolation(conditionText ? conditionText : "", line, file ? file : "");
}

} // namespace Varnel
