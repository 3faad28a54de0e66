#include "options.h"

#include <shared/common/utils/command_line.h>

#include "page_list.h"
#include "palette_choice.h"

namespace ui_kit_gallery {
namespace {

constexpr const char* Description = "Shows the components of the UI kit, a page for each.";

constexpr const char* Footer =
    "Alt+PageUp and Alt+PageDown turn the pages, Escape ends.\n"
    "Exit status: 0 done, 1 a document or a picture failed, 2 wrong use.";

std::vector<std::string> Strings(const QStringList& names)
{
    std::vector<std::string> strings;
    for (const auto& name : names)
        strings.push_back(name.toStdString());
    return strings;
}

void Declare(CLI::App& app, Options& options)
{
    app.add_option("--page", options.page, "the page to begin with")
        ->type_name("NAME")
        ->check(CLI::IsMember(Strings(PageNames())).description(""));
    app.add_option("--palette", options.palette, "light, dark or none")
        ->type_name("NAME")
        ->default_val("dark")
        ->check(CLI::IsMember(Strings(PaletteChoice::Names())).description(""));
    auto* screenshot =
        app.add_option("--screenshot", options.screenshot, "save a picture of the window and end")
            ->type_name("FILE");
    app.add_option("--scale", options.scale, "device pixels in one of the kit's")
        ->type_name("FACTOR")
        ->check(CLI::Range(0.5, 4.0).description(""));
    auto* docs = app.add_option("--docs", options.docs, "write ui_kit.md and its pictures and end")
                     ->type_name("FOLDER")
                     ->excludes(screenshot);
    app.add_flag("--list", options.isList, "print the names of the pages and end")
        ->excludes(screenshot)
        ->excludes(docs);
    app.footer(Footer);
}

}  // namespace

Options ParseOptions(int argc, const char* const* argv)
{
    Options options;
    CLI::App app(Description, "ui_kit_gallery");
    Declare(app, options);
    options.help = ::common::utils::ParseCommandLine(app, argc, argv);
    return options;
}

}  // namespace ui_kit_gallery
