#pragma once

#include <stdexcept>

namespace app_manager::service {

/// The configuration cannot be used; the text begins with "file:line:column: ".
class ConfigError final : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

}  // namespace app_manager::service
