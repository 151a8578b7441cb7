// Design-by-contract checks. A failed check is a bug, never a property of the
// user's text: it throws Varnel::ContractViolation carrying the literal text of
// the condition, the source line and the source file. Checks are always on.
//
// Use the macros, so that the condition text is exactly what was written:
//   TW_REQUIRE(n > 0);     // precondition
//   TW_ENSURE(total >= 0); // postcondition
//   TW_CHECK(false);       // unreachable branch
#ifndef VARNEL_CONTRACT_H
#define VARNEL_CONTRACT_H

#include <string>

namespace Varnel {

class ContractViolation {
public:
    ContractViolation(std::string condition, int line, std::string file);
    virtual ~ContractViolation() = default;
    ContractViolation(const ContractViolation&) = default;
    ContractViolation& operator=(const ContractViolation&) = default;

    // "DBC Violation: " file "(" line "): " condition
    virtual std::string what() const;

    const std::string& condition() const { return m_condition; }
    int line() const { return m_line; }
    const std::string& file() const { return m_file; }

private:
    std::string m_condition;
    int m_line;
    std::string m_file;
};

// Throws the violation; kept out of line so that a check that holds costs one test.
[[noreturn]] void failContract(const char* conditionText, int line, const char* file);

// Returns the condition when it holds; throws ContractViolation otherwise.
inline bool check(bool condition, const char* conditionText, int line, const char* file)
{
    if (!condition)
        failContract(conditionText, line, file);
    return condition;
}

// Precondition and postcondition forms; they behave exactly like check().
inline bool require(bool condition, const char* conditionText, int line, const char* file)
{
    return check(condition, conditionText, line, file);
}

inline bool ensure(bool condition, const char* conditionText, int line, const char* file)
{
    return check(condition, conditionText, line, file);
}

} // namespace Varnel

#define TW_CHECK(cond) ::Varnel::check(static_cast<bool>(cond), #cond, __LINE__, __FILE__)
#define TW_REQUIRE(cond) ::Varnel::require(static_cast<bool>(cond), #cond, __LINE__, __FILE__)
#define TW_ENSURE(cond) ::Varnel::ensure(static_cast<bool>(cond), #cond, __LINE__, __FILE__)

#endif
