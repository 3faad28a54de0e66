#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <string>

#include "i_source.h"

namespace tvo::service {

/// Lets clients of the published services in.
class ConnectionAcceptor final : public ISource
{
public:
    struct Service
    {
        std::uint16_t riid;
        std::uint32_t endpoint;
        std::function<bool(const std::string& client, std::uint32_t pid)> admit;
    };

    void Add(std::string name, Service service);

    void OnReady(Amount amount) override;

private:
    void Decide(const char* client, const char* name) const;

    std::map<std::string, Service, std::less<>> m_services;
};

}  // namespace tvo::service
