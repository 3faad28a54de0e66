#pragma once

#include <cstdint>
#include <string>

namespace tvo::bench {

/// A connection name that no other contender of this run has.
std::string UnusedConnectionName();

/// Binds a new endpoint to the name.
/// @throws std::runtime_error
std::uint32_t ServeConnectionName(const std::string& name);

/// A client's connection to it, closed with this object.
class Connection
{
public:
    /// @throws std::runtime_error
    explicit Connection(const std::string& name);
    ~Connection();
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    std::uint32_t Handle() const
    {
        return m_handle;
    }

private:
    std::uint32_t m_handle;
};

}  // namespace tvo::bench
