#pragma once

#include <algorithm>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <fmt/format.h>
#include <toml++/toml.h>

#include "config/config_error.h"

namespace app_manager::service {

/// Takes the values out of a file in TOML. What is not as it is asked for is refused with its
/// place.
class TomlReader final
{
public:
    /// @param file  names the file in refusals; outlives this
    explicit TomlReader(const std::string& file) : m_file(file) {}

    template <class... Args>
    [[noreturn]] void Refuse(const toml::source_region& where,
                             fmt::format_string<Args...> format,
                             Args&&... args) const
    {
        throw ConfigError(fmt::format("{}:{}:{}: {}",
                                      m_file,
                                      std::max(where.begin.line, 1U),
                                      std::max(where.begin.column, 1U),
                                      fmt::format(format, std::forward<Args>(args)...)));
    }

    [[nodiscard]] toml::table Parse(std::string_view text) const;

    void AllowKeys(const toml::table& table, const std::set<std::string_view>& known) const;

    [[nodiscard]] const toml::node& Required(const toml::table& table, std::string_view key) const;

    /// @returns those of [[key]]
    [[nodiscard]] std::vector<const toml::table*> Tables(const toml::table& table,
                                                         std::string_view key) const;

    /// @returns null when there is none
    [[nodiscard]] const toml::array* List(const toml::table& table, std::string_view key) const;

    /// @param what  is asked for, as refusals name it
    /// @returns a text without zero bytes, which may be empty
    [[nodiscard]] std::string Text(const toml::node& node, std::string_view what) const;

    /// @param limit  in bytes
    [[nodiscard]] std::string NonEmptyText(const toml::node& node,
                                           std::string_view what,
                                           std::size_t limit = std::string::npos) const;

    [[nodiscard]] double Seconds(const toml::node& node, std::string_view what) const;

private:
    const std::string& m_file;
};

}  // namespace app_manager::service
