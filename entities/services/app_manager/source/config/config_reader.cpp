#include "config/config_reader.h"

#include <algorithm>
#include <cerrno>
#include <cmath>
#include <cstring>
#include <fstream>
#include <iterator>
#include <map>
#include <optional>
#include <set>
#include <utility>

#include <fmt/format.h>
#include <toml++/toml.h>

#include <component/app_manager/tvo_ipc/limits.h>

namespace app_manager::service {
namespace {

using control::Kind;
using std::chrono::milliseconds;

constexpr double LongestSpan = 24 * 60 * 60;
constexpr std::size_t LongestServerName = 80;

const std::map<std::string_view, control::Command> CommandNames = {
    {"show", control::Command::Show},
    {"hide", control::Command::Hide},
    {"close", control::Command::Close},
};

struct SpanRule
{
    const char* key;
    milliseconds Limits::*field;
    milliseconds usual;
    bool isForServices;
};

constexpr milliseconds UsualServiceStart{10'000};

constexpr SpanRule SpanRules[] = {
    {"start_limit", &Limits::start, milliseconds(30'000), true},
    {"ping_limit", &Limits::ping, milliseconds(5'000), false},
    {"shutdown_limit", &Limits::shutdown, milliseconds(5'000), false},
    {"exit_limit", &Limits::exit, milliseconds(5'000), false},
    {"stop_limit", &Limits::stop, milliseconds(2'000), true},
    {"restart_delay", &Limits::restartDelay, milliseconds(500), true},
    {"restart_delay_max", &Limits::restartDelayMax, milliseconds(30'000), true},
    {"healthy_after", &Limits::healthyAfter, milliseconds(60'000), true},
};

/// Reads one file's text.
class Reader final
{
public:
    Reader(const std::string& file, const std::string& programs)
        : m_file(file), m_programs(programs)
    {}

    std::vector<ChildConfig> Read(std::string_view text)
    {
        const toml::table root = Parse(text);
        AllowKeys(root, {"service", "application"});
        ReadAll(root, "service", Kind::Service);
        ReadAll(root, "application", Kind::Application);
        if (m_children.empty())
        {
            throw ConfigError(m_file + ":1:1: there is nothing to run");
        }
        return std::move(m_children);
    }

private:
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

    toml::table Parse(std::string_view text) const
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

    void AllowKeys(const toml::table& table, const std::set<std::string_view>& known) const
    {
        for (const auto& [key, value] : table)
        {
            if (known.count(key.str()) == 0)
            {
                Refuse(key.source(), "unknown key \"{}\"", key.str());
            }
        }
    }

    void ReadAll(const toml::table& root, const char* key, Kind kind)
    {
        const toml::node* const list = root.get(key);
        if (list == nullptr)
        {
            return;
        }
        if (!list->is_array_of_tables())
        {
            Refuse(list->source(), "\"{}\" stands for tables, as in [[{}]]", key, key);
        }
        for (const toml::node& node : *list->as_array())
        {
            m_children.push_back(ReadChild(*node.as_table(), kind));
        }
    }

    ChildConfig ReadChild(const toml::table& table, Kind kind)
    {
        AllowKeys(table, KeysOf(kind));
        ChildConfig child;
        child.kind = kind;
        child.name = ReadName(table);
        ReadCommand(table, child);
        ReadEnvironment(table, child);
        ReadProvides(table, child);
        ReadNeeds(table, child);
        ReadCommands(table, child);
        ReadLimits(table, child);
        return child;
    }

    static std::set<std::string_view> KeysOf(Kind kind)
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
            if (rule.isForServices || kind == Kind::Application)
            {
                keys.insert(rule.key);
            }
        }
        return keys;
    }

    std::string Text(const toml::node& node, std::string_view what, std::size_t limit) const
    {
        const auto* const text = node.as_string();
        if (text == nullptr)
        {
            Refuse(node.source(), "{} is a text", what);
        }
        const std::string& value = text->get();
        if (value.empty())
        {
            Refuse(node.source(), "{} is empty", what);
        }
        if (value.size() > limit)
        {
            Refuse(node.source(), "{} is longer than {} bytes", what, limit);
        }
        return WithoutZero(node, value, what);
    }

    std::string WithoutZero(const toml::node& node,
                            const std::string& text,
                            std::string_view what) const
    {
        if (text.find('\0') != std::string::npos)
        {
            Refuse(node.source(), "{} holds a zero byte", what);
        }
        return text;
    }

    const toml::array* List(const toml::table& table, std::string_view key) const
    {
        const toml::node* const node = table.get(key);
        if (node != nullptr && !node->is_array())
        {
            Refuse(node->source(), "\"{}\" is a list of texts", key);
        }
        return node != nullptr ? node->as_array() : nullptr;
    }

    const toml::node& Required(const toml::table& table, std::string_view key) const
    {
        const toml::node* const node = table.get(key);
        if (node == nullptr)
        {
            Refuse(table.source(), "\"{}\" is missing", key);
        }
        return *node;
    }

    std::string ReadName(const toml::table& table)
    {
        const toml::node& node = Required(table, "name");
        std::string name = Text(node, "\"name\"", limits::Text);
        if (!m_names.insert(name).second)
        {
            Refuse(node.source(), "the name \"{}\" is used twice", name);
        }
        return name;
    }

    void ReadCommand(const toml::table& table, ChildConfig& child) const
    {
        const toml::node& node = Required(table, "command");
        const toml::array* const words = List(table, "command");
        if (words->empty())
        {
            Refuse(node.source(), "\"command\" is empty");
        }
        child.program = ReadProgram(*words->get(0));
        for (const toml::node& word : *words)
        {
            if (!word.is_string())
            {
                Refuse(word.source(), "a word of \"command\" is a text");
            }
            child.arguments.push_back(
                WithoutZero(word, word.as_string()->get(), "a word of \"command\""));
        }
        if (child.kind == Kind::Application)
        {
            child.arguments.front() = child.name;
        }
    }

    std::string ReadProgram(const toml::node& node) const
    {
        const std::string word = Text(node, "the program", std::string::npos);
        if (word.front() == '/')
        {
            return word;
        }
        if (word.find('/') != std::string::npos || word == "." || word == "..")
        {
            Refuse(node.source(), "the program is an absolute path or a bare file name");
        }
        return m_programs + "/" + word;
    }

    void ReadEnvironment(const toml::table& table, ChildConfig& child) const
    {
        const toml::node* const node = table.get("environment");
        if (node == nullptr)
        {
            return;
        }
        if (!node->is_table())
        {
            Refuse(node->source(), "\"environment\" is a table, as in {{ NAME = \"value\" }}");
        }
        for (const auto& [key, value] : *node->as_table())
        {
            const std::string name(key.str());
            if (name.empty() || name.find('=') != std::string::npos ||
                name.find('\0') != std::string::npos)
            {
                Refuse(key.source(), "no variable of the environment can have this name");
            }
            if (!value.is_string())
            {
                Refuse(value.source(), "the variable {} is a text", name);
            }
            child.variables.push_back(name + "=" +
                                      WithoutZero(value, value.as_string()->get(), "the variable"));
        }
    }

    void ReadProvides(const toml::table& table, ChildConfig& child) const
    {
        if (const toml::node* const node = table.get("provides"))
        {
            child.provides = Text(*node, "\"provides\"", LongestServerName);
        }
    }

    void ReadNeeds(const toml::table& table, ChildConfig& child) const
    {
        const toml::array* const needs = List(table, "needs");
        for (std::size_t i = 0; needs != nullptr && i < needs->size(); ++i)
        {
            const toml::node& node = *needs->get(i);
            std::string need = Text(node, "a name in \"needs\"", limits::Text);
            const bool isService =
                std::any_of(m_children.begin(),
                            m_children.end(),
                            [&need](const ChildConfig& other)
                            { return other.kind == Kind::Service && other.name == need; });
            if (!isService)
            {
                Refuse(node.source(), "no service is named \"{}\"", need);
            }
            child.needs.push_back(std::move(need));
        }
    }

    void ReadCommands(const toml::table& table, ChildConfig& child) const
    {
        const toml::array* const commands = List(table, "commands");
        for (std::size_t i = 0; commands != nullptr && i < commands->size(); ++i)
        {
            const toml::node& node = *commands->get(i);
            const std::string name = Text(node, "a name in \"commands\"", limits::Text);
            const auto row = CommandNames.find(name);
            if (row == CommandNames.end())
            {
                Refuse(node.source(), "a command is \"show\", \"hide\" or \"close\"");
            }
            child.commands.insert(row->second);
        }
    }

    void ReadLimits(const toml::table& table, ChildConfig& child) const
    {
        for (const SpanRule& rule : SpanRules)
        {
            const toml::node* const node = table.get(rule.key);
            child.limits.*rule.field = node != nullptr ? Span(*node, rule.key) : rule.usual;
        }
        Limits& limits = child.limits;
        if (child.kind == Kind::Service && !table.contains("start_limit"))
        {
            limits.start = UsualServiceStart;
        }
        if (limits.restartDelayMax < limits.restartDelay)
        {
            if (const toml::node* const node = table.get("restart_delay_max"))
            {
                Refuse(node->source(), "\"restart_delay_max\" is shorter than \"restart_delay\"");
            }
            limits.restartDelayMax = limits.restartDelay;
        }
    }

    milliseconds Span(const toml::node& node, const char* key) const
    {
        const auto seconds = node.is_number() ? node.value<double>() : std::nullopt;
        if (!seconds)
        {
            Refuse(node.source(), "\"{}\" is a number of seconds", key);
        }
        if (!(*seconds >= 0.001 && *seconds <= LongestSpan))
        {
            Refuse(node.source(), "\"{}\" is not between 0.001 and {} seconds", key, LongestSpan);
        }
        return milliseconds(std::llround(*seconds * 1000));
    }

    const std::string& m_file;
    const std::string& m_programs;
    std::vector<ChildConfig> m_children;
    std::set<std::string> m_names;
};

}  // namespace

std::vector<ChildConfig> ParseConfig(std::string_view text,
                                     const std::string& file,
                                     const std::string& programs)
{
    return Reader(file, programs).Read(text);
}

std::vector<ChildConfig> ReadConfig(const std::string& file, const std::string& programs)
{
    std::ifstream stream(file, std::ios::binary);
    const std::string text{std::istreambuf_iterator<char>(stream),
                           std::istreambuf_iterator<char>()};
    if (!stream.is_open() || stream.bad())
    {
        throw ConfigError(fmt::format("{}:1:1: cannot be read: {}", file, std::strerror(errno)));
    }
    return ParseConfig(text, file, programs);
}

}  // namespace app_manager::service
