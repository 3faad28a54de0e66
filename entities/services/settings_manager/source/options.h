#pragma once

#include <stdexcept>
#include <string>

namespace settings_manager::service {

struct Options
{
    std::string server;    ///< the name under which clients find the service
    std::string database;  ///< empty: nothing is kept
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

}  // namespace settings_manager::service
