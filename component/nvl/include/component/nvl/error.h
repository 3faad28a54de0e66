#pragma once

#include <stdexcept>
#include <string>
#include <utility>

#include <component/plk/result_code_list.h>
#include <component/plk/result_codes.h>

namespace nvl {

/// A failure of the value library, with its result code.
class Error final : public std::logic_error
{
public:
    Error(int code, const std::string& text) : std::logic_error(text), m_code(code) {}

    [[nodiscard]] int Code() const noexcept
    {
        return m_code;
    }

private:
    int m_code;
};

namespace res {

/// The general result codes as an enumeration, for pairs that name their code's type.
enum class Codes : int
{
#define NVL_RESULT_CODE(name, value, text) name = plk::codes::name,
    PLK_GENERAL_RESULT_CODES(NVL_RESULT_CODE)
#undef NVL_RESULT_CODE
};

}  // namespace res

/// The answer of an operation that went well.
inline const std::pair<int, std::string> ResultOk{plk::codes::Ok, std::string()};

/// Errors kept ready; a site throws a copy: `throw Error(ItemMissing)`.
inline const Error ItemExists{plk::codes::Found, "nvl: Item with given id already exists"};
inline const Error ItemMissing{plk::codes::NotFound, "nvl: Item with given id does not exist"};
inline const Error PathMismatch{plk::codes::NotMatched,
                                "nvl: Path or id does not correspond to contained item"};

/// Turns the exception in flight into a result code and a text. To be called inside a handler. A
/// code-and-text pair that was thrown as a value is moved out of the exception. An exception of its
/// own, for want of memory, ends the process.
std::pair<int, std::string> ProcessException() noexcept;

}  // namespace nvl
