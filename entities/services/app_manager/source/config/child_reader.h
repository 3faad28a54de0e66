#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "config/child_config.h"
#include "config/toml_reader.h"

namespace app_manager::service {

/// Reads the tables of children, one after the other.
class ChildReader final
{
public:
    /// @param toml, programs  outlive this
    ChildReader(const TomlReader& toml, const std::string& programs)
        : m_toml(toml), m_programs(programs)
    {}

    /// @param before  the children that were read already
    /// @throws ConfigError
    [[nodiscard]] ChildConfig Read(const toml::table& table,
                                   control::Kind kind,
                                   const std::vector<ChildConfig>& before) const;

private:
    [[nodiscard]] std::string ReadName(const toml::table& table,
                                       const std::vector<ChildConfig>& before) const;
    void ReadCommand(const toml::table& table, ChildConfig& child) const;
    [[nodiscard]] std::string ReadProgram(const toml::node& node) const;
    void ReadEnvironment(const toml::table& table, ChildConfig& child) const;
    void ReadProvides(const toml::table& table, ChildConfig& child) const;
    void ReadNeeds(const toml::table& table,
                   const std::vector<ChildConfig>& before,
                   ChildConfig& child) const;
    void ReadCommands(const toml::table& table, ChildConfig& child) const;
    void ReadLimits(const toml::table& table, ChildConfig& child) const;
    [[nodiscard]] std::chrono::milliseconds ReadSpan(const toml::node& node,
                                                     std::string_view key) const;

    const TomlReader& m_toml;
    const std::string& m_programs;
};

}  // namespace app_manager::service
