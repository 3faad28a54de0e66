#include "json_text.h"

#include <cstddef>
#include <set>
#include <vector>

#include <fmt/format.h>

#include "failure.h"
#include "printable.h"

namespace tvoctl {
namespace {

using nlohmann::json;

[[noreturn]] void Fail(const std::string& reason)
{
    throw Failure(ExitStatus::BadUse, "no valid JSON: " + reason);
}

/// Watches what the parser meets: it would take the last of several members of one name.
class Checker
{
public:
    void Meet(int depth, json::parse_event_t event, const json& parsed)
    {
        if (depth > MaxJsonDepth)
        {
            Fail("it is nested too deeply");
        }
        if (event == json::parse_event_t::object_start)
        {
            m_names.emplace_back();
        }
        else if (event == json::parse_event_t::object_end)
        {
            m_names.pop_back();
        }
        else if (event == json::parse_event_t::key)
        {
            CheckName(parsed.get_ref<const std::string&>());
        }
    }

private:
    void CheckName(const std::string& name)
    {
        if (!m_names.back().insert(name).second)
        {
            Fail(fmt::format("'{}' stands twice in an object", name));
        }
    }

    std::vector<std::set<std::string>> m_names;  // of the objects that are open
};

/// Without the library's own name for the error.
std::string Reason(const json::exception& error)
{
    const std::string_view text = error.what();
    const std::size_t end = text.find("] ");
    return std::string(end == std::string_view::npos ? text : text.substr(end + 2));
}

}  // namespace

json ParseJson(std::string_view text)
try
{
    Checker checker;
    return json::parse(text,
                       [&checker](int depth, json::parse_event_t event, const json& parsed)
                       {
                           checker.Meet(depth, event, parsed);
                           return true;
                       });
}
catch (const json::exception& error)
{
    Fail(Reason(error));
}

std::string JsonLine(const json& json)
{
    return Printable(json.dump(-1, ' ', false, json::error_handler_t::replace));
}

std::string JsonPage(const json& json)
{
    return Printable(json.dump(2), true);
}

}  // namespace tvoctl
