// The exception family of the token layer and everything built on it. These are
// for misuse and bugs, never for faults in the user's text, which travel as
// messages. Each carries one text, returned by what().
#ifndef TRN_EXCEPTION_H
#define TRN_EXCEPTION_H

#include <string>

namespace Trn {

class Exception {
public:
    explicit Exception(std::string text);
    virtual ~Exception() = default;
    Exception(const Exception&) = default;
    Exception& operator=(const Exception&) = default;

    virtual std::string what() const;

private:
    std::string m_text;
};

class InvalidValueType : public Exception {
public:
    InvalidValueType();
};

class AlreadyExistsException : public virtual Exception {
public:
    AlreadyExistsException();
};

class InvalidParameterException : public virtual Exception {
public:
    InvalidParameterException();
};

} // namespace Trn

#endif
