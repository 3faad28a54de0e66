#pragma once

#include <stdexcept>
#include <string>

namespace app_manager::service {

struct Options
{
    std::string config;    ///< the file that says what the terminal consists of
    bool isCheck = false;  ///< read it and do nothing else
    std::string help;      ///< not empty: to be printed, and nothing else to be done
};

/// The program was called in a wrong way; the text says how.
class BadUse final : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

/// @throws BadUse
[[nodiscard]] Options ParseOptions(int argc, const char* const* argv);

}  // namespace app_manager::service
