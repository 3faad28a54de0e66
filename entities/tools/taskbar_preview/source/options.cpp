#include "options.h"

#include <shared/common/utils/command_line.h>

namespace taskbar_preview {
namespace {

constexpr const char* Description = "Shows the controls of the taskbar at work.";

constexpr const char* Footer =
    "F10 opens the power menu, whose commands are printed and not carried out. Ctrl+Q ends.\n"
    "Exit status: 0 done, 1 the window or a picture failed, 2 wrong use.";

const std::vector<std::string> KnownLayouts{"en-US", "ru-RU", "es-MX", "pt-BR"};

void Declare(CLI::App& app, Options& options)
{
    app.add_option("--language", options.language, "the clock's language (the system's)")
        ->type_name("CODE");
    app.add_option("--layouts", options.layouts, "the layouts to choose from")
        ->type_name("CODE,...")
        ->delimiter(',')
        ->default_val(KnownLayouts)
        ->check(CLI::IsMember(KnownLayouts).description(""));
    app.add_option("--contact", options.contact, "how to reach the administrator")
        ->type_name("TEXT")
        ->default_val("Support: ext. 4040");
    app.add_flag("--update", options.isUpdateReady, "as if an update waited for a restart");
    app.add_option("--screenshot", options.screenshot, "save a picture of the window and end")
        ->type_name("FILE");
    app.footer(Footer);
}

}  // namespace

Options ParseOptions(int argc, const char* const* argv)
{
    Options options;
    CLI::App app(Description, "taskbar_preview");
    Declare(app, options);
    options.help = ::common::utils::ParseCommandLine(app, argc, argv);
    return options;
}

}  // namespace taskbar_preview
