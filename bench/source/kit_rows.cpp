#include "kit_rows.h"

#include "server_line.h"

namespace tvo::bench {
namespace {

/// A contender that lives in a process of its own and is told how often to run.
class Remote final : public Contender
{
public:
    explicit Remote(const std::vector<std::string>& server) : m_line(server) {}

    void Run(int count) override
    {
        m_line.Tell(count);
        m_line.Await();
    }

    void Rest() override
    {
        Run(0);
    }

private:
    const ServerLine m_line;
};

MakeContender InServer(const std::vector<std::string>& arguments)
{
    return [arguments]
    {
        std::vector<std::string> server{"controls"};
        server.insert(server.end(), arguments.begin(), arguments.end());
        return std::make_unique<Remote>(server);
    };
}

/// A control of the kit and the one of Qt that stands in the place of the same name.
struct Control
{
    const char* row;
    const char* name;
    double limit = 1.5;
};

constexpr Control Controls[]{
    {"kit_text_label", "textLabel"},
    {"kit_text_promt", "textPromt"},
    {"kit_push_button", "pushButton"},
    {"kit_icon_button", "iconButton"},
    {"kit_close_button", "closeButton"},
    {"kit_app_button", "appButton"},
    {"kit_more_menu", "moreMenu"},
    {"kit_check_box", "checkBox"},
    {"kit_radio_button", "radioButton"},
    {"kit_slide_button", "slideButton"},
    {"kit_line_edit", "lineEdit", 5.5},
    {"kit_text_edit", "textEdit"},
    {"kit_combo_box", "comboBox", 4.3},
    {"kit_date_picker", "datePicker"},
    {"kit_scroll_bar", "kitScrollBar"},
    {"kit_scrolling_text", "scrollingText"},
    {"kit_manual_scrolling", "manualScrollingText"},
    {"kit_controls_tooltip", "controlsTooltip"},
    {"kit_common_menu", "commonMenu"},
    {"kit_app_menu", "appMenu"},
    {"kit_app_windows", "appWindows"},
    {"kit_alt_tab", "altTab"},
};

}  // namespace

std::vector<Row> KitRows()
{
    constexpr int Pairs = 41;
    std::vector<Row> rows;
    for (const Control& control : Controls)
    {
        rows.push_back({control.row,
                        control.limit,
                        InServer({"show", "KitControls", control.name}),
                        InServer({"show", "PlainControls", control.name}),
                        Pairs});
    }
    rows.push_back({"kit_app_windows_1000",
                    1.1,
                    InServer({"show", "KitControls", "appWindowsOfMany"}),
                    InServer({"show", "KitControls", "appWindows"}),
                    Pairs});
    rows.push_back({"kit_palette_switch", 5.9, InServer({"switch"}), InServer({"repaint"}), Pairs});
    return rows;
}

}  // namespace tvo::bench
