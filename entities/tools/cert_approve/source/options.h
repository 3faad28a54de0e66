#pragma once

#include <optional>
#include <string>

namespace cert_approve {

struct Options
{
    std::string file;        ///< "-" for standard input; empty when a server is asked
    std::string connect;     ///< HOST:PORT as given; empty when a file is read
    std::string serverName;  ///< empty for the host's name
    std::optional<std::string> address;
    std::optional<std::string> saveDirectory;
    bool isJson = false;
    std::string help;  ///< not empty: what to print instead of doing anything
};

/// @throws Failure  BadInput for anything but one certificate to ask about
Options ParseOptions(int argc, const char* const* argv);

}  // namespace cert_approve
