#pragma once

#include <cstdint>

namespace cert_approver {

/// An endpoint bound to a connection name, for as long as the object lives.
class ServiceRegistration
{
public:
    /// @throws zin::CheckFailedException  the name cannot be had
    explicit ServiceRegistration(const char* connectionId);
    ~ServiceRegistration();

    ServiceRegistration(const ServiceRegistration&) = delete;
    ServiceRegistration& operator=(const ServiceRegistration&) = delete;

    /// @returns the endpoint on which requests arrive
    [[nodiscard]] std::uint32_t Handle() const
    {
        return m_handle;
    }

private:
    std::uint64_t m_identifier = 0;
    std::uint32_t m_handle;
};

}  // namespace cert_approver
