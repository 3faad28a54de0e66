#pragma once

#include <stdexcept>

namespace common::utils {

/// A program was called in a wrong way; the text says how.
class BadUse final : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

}  // namespace common::utils
