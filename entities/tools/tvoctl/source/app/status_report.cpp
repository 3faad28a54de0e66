#include "status_report.h"

#include <cstring>

#include <fmt/format.h>

#include <component/app_manager/tvo_ipc/command_values.h>
#include <component/app_manager/tvo_ipc/control_words.h>

#include "times.h"
#include "words.h"

namespace tvoctl {
namespace {

using app_manager::control::ApplicationStatus;
using app_manager::control::EndKind;
using app_manager::control::EndWord;
using app_manager::control::LastEnd;
using nlohmann::json;

std::string SignalName(int number)
{
    const char* const name = ::sigabbrev_np(number);
    return name != nullptr ? fmt::format("SIG{}", name) : fmt::format("signal {}", number);
}

std::string ReportedText(std::int64_t state)
{
    const bool isLast = state == app_manager::states::ReadyToShutdown;
    return std::to_string(state) + (isLast ? " (ready to shut down)" : "");
}

/// Lines with a label each.
class Page final
{
public:
    explicit Page(std::string title) : m_lines{std::move(title)} {}

    void Add(const char* label, const std::string& text)
    {
        m_lines.push_back(fmt::format("  {:<16}{}", label, text));
    }

    std::vector<std::string> TakeLines()
    {
        return std::move(m_lines);
    }

private:
    std::vector<std::string> m_lines;
};

void AddProcess(Page& page, const ApplicationStatus& status)
{
    page.Add("kind", KindWord(status.kind));
    page.Add("pid", status.pid != 0 ? std::to_string(status.pid) : "-");
    if (status.readySince)
    {
        page.Add("ready since", LocalText(*status.readySince));
    }
    if (status.lastPing)
    {
        page.Add(
            "last ping",
            fmt::format(
                "{}, {} ago", LocalText(status.lastPing->when), SpanText(status.lastPing->age)));
    }
    if (status.reportedState)
    {
        page.Add("reported state", ReportedText(*status.reportedState));
    }
}

void AddPast(Page& page, const ApplicationStatus& status)
{
    page.Add("restarts", std::to_string(status.restarts));
    if (status.startsIn)
    {
        page.Add("starts in", SpanText(*status.startsIn));
    }
    if (status.lastEnd)
    {
        page.Add(
            "last end",
            fmt::format("{}: {}", LocalText(status.lastEnd->when), EndWord(status.lastEnd->kind)));
        page.Add("cause", status.lastEnd->cause);
    }
    if (status.lastError)
    {
        page.Add("last error",
                 fmt::format("{} - {}", status.lastError->error, status.lastError->description));
    }
}

json EndJson(const LastEnd& end)
{
    const bool hasRun = end.kind != EndKind::NotStarted;
    return {{"kind", EndWord(end.kind)},
            {"exitStatus", hasRun && !end.bySignal ? json(end.status) : json()},
            {"signal", hasRun && end.bySignal ? json(SignalName(end.status)) : json()},
            {"when", IsoText(end.when)},
            {"cause", end.cause}};
}

/// @param convert  makes JSON of what the optional holds
template <class T, class Convert>
json OrNull(const std::optional<T>& value, Convert convert)
{
    return value ? json(convert(*value)) : json();
}

}  // namespace

std::vector<std::string> StatusLines(const std::string& name, const ApplicationStatus& status)
{
    Page page(fmt::format("{}: {}", name, StateWord(status.state)));
    AddProcess(page, status);
    AddPast(page, status);
    return page.TakeLines();
}

json StatusJson(const std::string& name, const ApplicationStatus& status)
{
    const auto count = [](std::chrono::milliseconds span)
    {
        return span.count();
    };
    return {
        {"name", name},
        {"kind", KindWord(status.kind)},
        {"state", StateWord(status.state)},
        {"pid", status.pid != 0 ? json(status.pid) : json()},
        {"restarts", status.restarts},
        {"readySince", OrNull(status.readySince, &IsoText)},
        {"lastPing", OrNull(status.lastPing, [](const auto& ping) { return IsoText(ping.when); })},
        {"pingAgeMs", OrNull(status.lastPing, [](const auto& ping) { return ping.age.count(); })},
        {"startsInMs", OrNull(status.startsIn, count)},
        {"reportedState", OrNull(status.reportedState, [](std::int64_t state) { return state; })},
        {"lastEnd", OrNull(status.lastEnd, &EndJson)},
        {"lastError",
         OrNull(status.lastError,
                [](const auto& error) {
                    return json{{"error", error.error}, {"description", error.description}};
                })}};
}

}  // namespace tvoctl
