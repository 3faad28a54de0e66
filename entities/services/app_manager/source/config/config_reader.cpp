#include "config/config_reader.h"

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>

#include <fmt/format.h>

#include "config/child_reader.h"
#include "config/toml_reader.h"

namespace app_manager::service {
namespace {

using control::Kind;

struct List
{
    const char* key;
    Kind kind;
};

/// In the order in which they are started.
constexpr List Lists[] = {{"service", Kind::Service}, {"application", Kind::Application}};

/// Refuses what is no regular file: a pipe would let the manager wait.
std::string ContentsOf(const std::string& file)
{
    std::error_code error;
    if (!std::filesystem::is_regular_file(file, error))
    {
        throw ConfigError(fmt::format(
            "{}:1:1: cannot be read: {}", file, error ? error.message() : "it is no regular file"));
    }
    try
    {
        std::ifstream stream;
        stream.exceptions(std::ios::failbit | std::ios::badbit);
        stream.open(file, std::ios::binary);
        return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
    }
    catch (const std::ios::failure&)
    {
        throw ConfigError(fmt::format("{}:1:1: cannot be read: {}", file, std::strerror(errno)));
    }
}

}  // namespace

std::vector<ChildConfig> ParseConfig(std::string_view text,
                                     const std::string& file,
                                     const std::string& programs)
{
    const TomlReader toml(file);
    const toml::table root = toml.Parse(text);
    toml.AllowKeys(root, {Lists[0].key, Lists[1].key});
    const ChildReader reader(toml, programs);
    std::vector<ChildConfig> children;
    for (const auto& [key, kind] : Lists)
    {
        for (const toml::table* const table : toml.Tables(root, key))
        {
            children.push_back(reader.Read(*table, kind, children));
        }
    }
    if (children.empty())
    {
        toml.Refuse({}, "there is nothing to run");
    }
    return children;
}

std::vector<ChildConfig> ReadConfig(const std::string& file, const std::string& programs)
{
    return ParseConfig(ContentsOf(file), file, programs);
}

}  // namespace app_manager::service
