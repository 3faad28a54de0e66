#include "config/child_reader.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>
#include <set>
#include <utility>

#include <component/app_manager/tvo_ipc/control_words.h>
#include <component/app_manager/tvo_ipc/limits.h>

namespace app_manager::service {
namespace {

using control::Command;
using control::Kind;
using std::chrono::milliseconds;

constexpr double LongestSpan = 24 * 60 * 60;
constexpr std::size_t LongestServerName = 80;

constexpr std::array Commands = {Command::Show, Command::Hide, Command::Close};

struct SpanRule
{
    const char* key;
    milliseconds Limits::*field;
    milliseconds usual;                           ///< for applications
    std::optional<milliseconds> usualOfServices;  ///< nothing: services do not have it
};

constexpr SpanRule SpanRules[] = {
    {"start_limit", &Limits::start, milliseconds(30'000), milliseconds(10'000)},
    {"ping_limit", &Limits::ping, milliseconds(5'000), {}},
    {"shutdown_limit", &Limits::shutdown, milliseconds(5'000), {}},
    {"exit_limit", &Limits::exit, milliseconds(5'000), {}},
    {"stop_limit", &Limits::stop, milliseconds(2'000), milliseconds(2'000)},
    {"restart_delay", &Limits::restartDelay, milliseconds(500), milliseconds(500)},
    {"restart_delay_max", &Limits::restartDelayMax, milliseconds(30'000), milliseconds(30'000)},
    {"healthy_after", &Limits::healthyAfter, milliseconds(60'000), milliseconds(60'000)},
};

std::optional<milliseconds> UsualOf(const SpanRule& rule, Kind kind)
{
    return kind == Kind::Service ? rule.usualOfServices : rule.usual;
}

std::set<std::string_view> KeysOf(Kind kind)
{
    std::set<std::string_view> keys = {"name", "command", "environment"};
    if (kind == Kind::Service)
    {
        keys.insert("provides");
    }
    else
    {
        keys.insert({"needs", "commands"});
    }
    for (const SpanRule& rule : SpanRules)
    {
        if (UsualOf(rule, kind))
        {
            keys.insert(rule.key);
        }
    }
    return keys;
}

bool IsControl(char byte)
{
    return static_cast<unsigned char>(byte) < 0x20 || byte == 0x7F;
}

/// How long a server's name is as the name of a file, which it is percent-encoded for.
std::size_t EncodedSize(std::string_view name)
{
    static constexpr std::string_view Plain =
        "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789_-.";
    const auto isPlain = [](char byte)
    {
        return Plain.find(byte) != std::string_view::npos;
    };
    const auto plain = static_cast<std::size_t>(std::count_if(name.begin(), name.end(), isPlain));
    const std::size_t encoded = name.size() - plain + (name.starts_with('.') ? 1 : 0);
    return name.size() + 2 * encoded;
}

}  // namespace

ChildConfig ChildReader::Read(const toml::table& table,
                              Kind kind,
                              const std::vector<ChildConfig>& before) const
{
    m_toml.AllowKeys(table, KeysOf(kind));
    ChildConfig child;
    child.kind = kind;
    child.name = ReadName(table, before);
    ReadCommand(table, child);
    ReadEnvironment(table, child);
    ReadProvides(table, child);
    ReadNeeds(table, before, child);
    ReadCommands(table, child);
    ReadLimits(table, child);
    return child;
}

std::string ChildReader::ReadName(const toml::table& table,
                                  const std::vector<ChildConfig>& before) const
{
    const toml::node& node = m_toml.Required(table, "name");
    std::string name = m_toml.NonEmptyText(node, "\"name\"", limits::Text);
    // It stands in lines that systemd and the journal read.
    if (std::any_of(name.begin(), name.end(), &IsControl))
    {
        m_toml.Refuse(node.source(), "\"name\" holds a control character");
    }
    const auto hasName = [&name](const ChildConfig& other)
    {
        return other.name == name;
    };
    if (std::any_of(before.begin(), before.end(), hasName))
    {
        m_toml.Refuse(node.source(), "the name \"{}\" is used twice", name);
    }
    return name;
}

void ChildReader::ReadCommand(const toml::table& table, ChildConfig& child) const
{
    const toml::node& node = m_toml.Required(table, "command");
    const toml::array* const words = m_toml.List(table, "command");
    if (words->empty())
    {
        m_toml.Refuse(node.source(), "\"command\" is empty");
    }
    child.program = ReadProgram(*words->get(0));
    for (const toml::node& word : *words)
    {
        child.arguments.push_back(m_toml.Text(word, "a word of \"command\""));
    }
    if (child.kind == Kind::Application)
    {
        child.arguments.front() = child.name;
    }
}

std::string ChildReader::ReadProgram(const toml::node& node) const
{
    std::string word = m_toml.NonEmptyText(node, "the program");
    if (word.front() == '/')
    {
        return word;
    }
    if (word.find('/') != std::string::npos || word == "." || word == "..")
    {
        m_toml.Refuse(node.source(), "the program is an absolute path or a bare file name");
    }
    return m_programs + "/" + word;
}

void ChildReader::ReadEnvironment(const toml::table& table, ChildConfig& child) const
{
    const toml::node* const node = table.get("environment");
    if (node == nullptr)
    {
        return;
    }
    if (!node->is_table())
    {
        m_toml.Refuse(node->source(), R"("environment" is a table, as in {{ NAME = "value" }})");
    }
    for (const auto& [key, value] : *node->as_table())
    {
        const std::string name(key.str());
        if (name.empty() || name.find('=') != std::string::npos ||
            name.find('\0') != std::string::npos)
        {
            m_toml.Refuse(key.source(), "no variable of the environment can have this name");
        }
        child.variables.push_back(name + "=" + m_toml.Text(value, "the variable " + name));
    }
}

void ChildReader::ReadProvides(const toml::table& table, ChildConfig& child) const
{
    const toml::node* const node = table.get("provides");
    if (node == nullptr)
    {
        return;
    }
    child.provides = m_toml.NonEmptyText(*node, "\"provides\"");
    if (EncodedSize(child.provides) > LongestServerName)
    {
        m_toml.Refuse(node->source(),
                      "\"provides\" is longer than {} bytes, where all but letters, digits and "
                      "\"_-.\" count three",
                      LongestServerName);
    }
}

void ChildReader::ReadNeeds(const toml::table& table,
                            const std::vector<ChildConfig>& before,
                            ChildConfig& child) const
{
    const toml::array* const needs = m_toml.List(table, "needs");
    for (std::size_t i = 0; needs != nullptr && i < needs->size(); ++i)
    {
        const toml::node& node = *needs->get(i);
        std::string need = m_toml.NonEmptyText(node, "a name in \"needs\"", limits::Text);
        const auto isMeant = [&need](const ChildConfig& other)
        {
            return other.kind == Kind::Service && other.name == need;
        };
        if (std::none_of(before.begin(), before.end(), isMeant))
        {
            m_toml.Refuse(node.source(), "no service is named \"{}\"", need);
        }
        child.needs.push_back(std::move(need));
    }
}

void ChildReader::ReadCommands(const toml::table& table, ChildConfig& child) const
{
    const toml::array* const names = m_toml.List(table, "commands");
    for (std::size_t i = 0; names != nullptr && i < names->size(); ++i)
    {
        const toml::node& node = *names->get(i);
        const std::string name = m_toml.NonEmptyText(node, "a name in \"commands\"", limits::Text);
        const auto isMeant = [&name](Command command)
        {
            return control::CommandWord(command) == name;
        };
        const auto* const command = std::find_if(Commands.begin(), Commands.end(), isMeant);
        if (command == Commands.end())
        {
            m_toml.Refuse(node.source(), R"(a command is "show", "hide" or "close")");
        }
        child.commands.insert(*command);
    }
}

void ChildReader::ReadLimits(const toml::table& table, ChildConfig& child) const
{
    Limits& limits = child.limits;
    for (const SpanRule& rule : SpanRules)
    {
        const toml::node* const node = table.get(rule.key);
        limits.*rule.field = node != nullptr
                                 ? ReadSpan(*node, rule.key)
                                 : UsualOf(rule, child.kind).value_or(milliseconds::zero());
    }
    if (limits.restartDelayMax < limits.restartDelay)
    {
        if (const toml::node* const node = table.get("restart_delay_max"))
        {
            m_toml.Refuse(node->source(), R"("restart_delay_max" is shorter than "restart_delay")");
        }
        limits.restartDelayMax = limits.restartDelay;
    }
}

milliseconds ChildReader::ReadSpan(const toml::node& node, std::string_view key) const
{
    const double seconds = m_toml.Seconds(node, fmt::format("\"{}\"", key));
    if (!(seconds >= 0.001 && seconds <= LongestSpan))
    {
        m_toml.Refuse(
            node.source(), "\"{}\" is not between 0.001 and {} seconds", key, LongestSpan);
    }
    return milliseconds(std::llround(seconds * 1000));
}

}  // namespace app_manager::service
