#include "services.h"

#include <string>

#include "../json_text.h"
#include "../table.h"

namespace tvoctl {
namespace {

std::string CountText(const std::optional<std::uint32_t>& count)
{
    return count ? std::to_string(*count) : "?";
}

std::string OrDash(const std::string& text)
{
    return text.empty() ? "-" : text;
}

nlohmann::json OrNull(const std::string& text)
{
    return text.empty() ? nlohmann::json() : nlohmann::json(text);
}

nlohmann::json OrNull(const std::optional<std::uint32_t>& number)
{
    return number ? nlohmann::json(*number) : nlohmann::json();
}

class Services final : public ICommand
{
public:
    explicit Services(CLI::App& app)
        : m_app(app.add_subcommand("services", "Lists what the terminal's processes publish."))
    {}

    [[nodiscard]] bool IsChosen() const override
    {
        return m_app->parsed();
    }

    void Run(Environment& environment) override
    {
        const auto services = environment.listServices();
        if (environment.isJson)
        {
            PrintJson(services, environment.out);
        }
        else
        {
            PrintTable(services, environment.out);
        }
    }

private:
    static void PrintTable(const std::vector<PublishedService>& services, Output& out)
    {
        Table table({"NAME", "INTERFACE", "ENTITY", "PID", "UID", "WAITING", "SERVED"});
        for (const PublishedService& service : services)
        {
            table.Add({service.name,
                       service.isStatic ? "(static)" : service.interfaceName,
                       OrDash(service.entity),
                       service.pid != 0 ? std::to_string(service.pid) : "?",
                       std::to_string(service.uid),
                       CountText(service.waiting),
                       CountText(service.served)});
        }
        table.Print(out);
    }

    static void PrintJson(const std::vector<PublishedService>& services, Output& out)
    {
        for (const PublishedService& service : services)
        {
            out.Print(JsonLine(
                {{"name", service.name},
                 {"interface", OrNull(service.interfaceName)},
                 {"entity", OrNull(service.entity)},
                 {"static", service.isStatic},
                 {"pid", OrNull(service.pid != 0 ? std::optional(service.pid) : std::nullopt)},
                 {"uid", service.uid},
                 {"waiting", OrNull(service.waiting)},
                 {"served", OrNull(service.served)}}));
        }
    }

    CLI::App* m_app;
};

}  // namespace

void AddServicesCommand(CLI::App& app, Commands& commands)
{
    commands.push_back(std::make_unique<Services>(app));
}

}  // namespace tvoctl
