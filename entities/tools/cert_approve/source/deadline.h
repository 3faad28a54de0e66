#pragma once

#include <algorithm>
#include <chrono>

namespace cert_approve {

/// A limit for several steps together.
class Deadline
{
public:
    explicit Deadline(std::chrono::milliseconds limit)
        : m_end(std::chrono::steady_clock::now() + limit)
    {}

    /// @returns what is left, never below zero
    [[nodiscard]] std::chrono::milliseconds Left() const
    {
        const auto left =
            std::chrono::ceil<std::chrono::milliseconds>(m_end - std::chrono::steady_clock::now());
        return std::max(left, std::chrono::milliseconds::zero());
    }

private:
    std::chrono::steady_clock::time_point m_end;
};

}  // namespace cert_approve
