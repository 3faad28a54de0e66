#include "config/toml_reader.h"

namespace app_manager::service {

toml::table TomlReader::Parse(std::string_view text) const
{
    try
    {
        return toml::parse(text);
    }
    catch (const toml::parse_error& error)
    {
        Refuse(error.source(), "{}", error.description());
    }
}

void TomlReader::AllowKeys(const toml::table& table, const std::set<std::string_view>& known) const
{
    for (const auto& [key, value] : table)
    {
        if (!known.contains(key.str()))
        {
            Refuse(key.source(), "unknown key \"{}\"", key.str());
        }
    }
}

const toml::node& TomlReader::Required(const toml::table& table, std::string_view key) const
{
    const toml::node* const node = table.get(key);
    if (node == nullptr)
    {
        Refuse(table.source(), "\"{}\" is missing", key);
    }
    return *node;
}

std::vector<const toml::table*> TomlReader::Tables(const toml::table& table,
                                                   std::string_view key) const
{
    std::vector<const toml::table*> tables;
    const toml::node* const list = table.get(key);
    if (list == nullptr)
    {
        return tables;
    }
    if (!list->is_array_of_tables())
    {
        Refuse(list->source(), "\"{}\" stands for tables, as in [[{}]]", key, key);
    }
    for (const toml::node& node : *list->as_array())
    {
        tables.push_back(node.as_table());
    }
    return tables;
}

const toml::array* TomlReader::List(const toml::table& table, std::string_view key) const
{
    const toml::node* const node = table.get(key);
    if (node != nullptr && !node->is_array())
    {
        Refuse(node->source(), "\"{}\" is a list of texts", key);
    }
    return node != nullptr ? node->as_array() : nullptr;
}

std::string TomlReader::Text(const toml::node& node, std::string_view what) const
{
    const auto* const text = node.as_string();
    if (text == nullptr)
    {
        Refuse(node.source(), "{} is a text", what);
    }
    if (text->get().find('\0') != std::string::npos)
    {
        Refuse(node.source(), "{} holds a zero byte", what);
    }
    return text->get();
}

std::string TomlReader::NonEmptyText(const toml::node& node,
                                     std::string_view what,
                                     std::size_t limit) const
{
    std::string text = Text(node, what);
    if (text.empty())
    {
        Refuse(node.source(), "{} is empty", what);
    }
    if (text.size() > limit)
    {
        Refuse(node.source(), "{} is longer than {} bytes", what, limit);
    }
    return text;
}

double TomlReader::Seconds(const toml::node& node, std::string_view what) const
{
    if (const auto* const whole = node.as_integer())
    {
        return static_cast<double>(whole->get());
    }
    const auto* const number = node.as_floating_point();
    if (number == nullptr)
    {
        Refuse(node.source(), "{} is a number of seconds", what);
    }
    return number->get();
}

}  // namespace app_manager::service
