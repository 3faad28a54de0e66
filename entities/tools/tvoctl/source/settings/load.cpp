#include <string>

#include "../input.h"
#include "../json_text.h"
#include "difference.h"
#include "document.h"
#include "report.h"
#include "settings_command.h"

namespace tvoctl {
namespace {

class Load final : public SettingsCommand
{
public:
    Load(CLI::App& settings, OptionsPtr options)
        : SettingsCommand(settings,
                          std::move(options),
                          "load",
                          "Takes back what `dump` has printed: all of it or nothing.")
    {
        App().add_option("FILE", m_file, "- for standard input")->required();
        App().add_flag("--dry-run", m_isDry, "print what would change, and change nothing");
    }

private:
    void RunOn(Environment& environment, const nvl::Path& /*path*/) override
    {
        const Document document = DocumentFromJson(ParseJson(ReadInput(m_file, environment.in)));
        Store store = Open(environment);
        if (m_isDry)
        {
            const auto before = store.Find(document.path);
            PrintChanges(environment,
                         FindDifference(document.path, Pointer(before), &document.setting));
            return;
        }
        store.SetOrCreateSetting(document.path, document.setting);
        PrintDone(environment, "load", document.path);
    }

    std::string m_file;
    bool m_isDry = false;
};

}  // namespace

std::unique_ptr<ICommand> MakeLoad(CLI::App& settings, OptionsPtr options)
{
    return std::make_unique<Load>(settings, std::move(options));
}

}  // namespace tvoctl
