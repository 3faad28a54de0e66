#pragma once

#include <component/plk/exception.h>

namespace zin {

/// A precondition did not hold.
class CheckFailedException final : public ExceptionBase<CheckFailedException, Exception>
{
public:
    CheckFailedException(const char* file, int line) noexcept : ExceptionBase(file, line) {}

    [[nodiscard]] const char* what() const noexcept override;

    template <class T>
    const CheckFailedException& operator<<(const T& value) const
    {
        Append(value);
        return *this;
    }
};

/// A failure with a result code at hand; see <component/plk/result_codes.h>.
class ResultCodeException : public ExceptionBase<ResultCodeException, Exception>
{
public:
    ResultCodeException(const char* file, int line, int code) noexcept
        : ExceptionBase(file, line), m_code(code)
    {}

    [[nodiscard]] const char* what() const noexcept override;

    /// "text: 0x8000004c (Not found)"
    [[nodiscard]] String Text() const override;

    [[nodiscard]] int Code() const noexcept
    {
        return m_code;
    }

private:
    int m_code;
};

/// An operation answered with a failing result code.
class CheckResultFailedException final
    : public ExceptionBase<CheckResultFailedException, ResultCodeException>
{
public:
    CheckResultFailedException(const char* file, int line, int code) noexcept
        : ExceptionBase(file, line, code)
    {}

    [[nodiscard]] const char* what() const noexcept override;

    template <class T>
    const CheckResultFailedException& operator<<(const T& value) const
    {
        Append(value);
        return *this;
    }
};

/// A required argument is missing. It has neither text nor code: its code is 0.
class InvalidArgumentException final
    : public ExceptionBase<InvalidArgumentException, ResultCodeException>
{
public:
    InvalidArgumentException(const char* file, int line) noexcept : ExceptionBase(file, line, 0) {}

    [[nodiscard]] const char* what() const noexcept override;
};

}  // namespace zin

/// Throws `zin::CheckFailedException` unless the condition holds. The pieces are one expression or
/// a chain of them: ZIN_CHECK(handle != 0, "cannot open " << name). Write "" for no text.
#define ZIN_CHECK(condition, pieces)                                         \
    do                                                                       \
    {                                                                        \
        if (!(condition))                                                    \
        {                                                                    \
            throw ::zin::CheckFailedException(__FILE__, __LINE__) << pieces; \
        }                                                                    \
    } while (false)

/// Throws `zin::CheckResultFailedException` with the code if it is negative.
#define ZIN_CHECK_RESULT(code, pieces)                                                             \
    do                                                                                             \
    {                                                                                              \
        if (const int zinCheckedCode = (code); zinCheckedCode < 0)                                 \
        {                                                                                          \
            throw ::zin::CheckResultFailedException(__FILE__, __LINE__, zinCheckedCode) << pieces; \
        }                                                                                          \
    } while (false)
