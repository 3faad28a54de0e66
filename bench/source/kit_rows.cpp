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
    {"kit_push_button", "pushButton", 2.1},
    {"kit_icon_button", "iconButton"},
    {"kit_close_button", "closeButton", 2.6},
    {"kit_app_button", "appButton"},
    {"kit_more_menu", "moreMenu", 1.9},
    {"kit_check_box", "checkBox", 2.2},
    {"kit_radio_button", "radioButton"},
    {"kit_slide_button", "slideButton", 2.0},
    {"kit_line_edit", "lineEdit", 5.0},
    {"kit_text_edit", "textEdit"},
    {"kit_combo_box", "comboBox", 4.3},
    {"kit_date_picker", "datePicker", 2.1},
    {"kit_scroll_bar", "kitScrollBar"},
    {"kit_scrolling_text", "scrollingText"},
    {"kit_manual_scrolling", "manualScrollingText"},
    {"kit_controls_tooltip", "controlsTooltip"},
    {"kit_common_menu", "commonMenu"},
    {"kit_app_menu", "appMenu"},
    {"kit_app_windows", "appWindows"},
    {"kit_alt_tab", "altTab"},
};

constexpr int Pairs = 101;

/// Pages of the kit's control beside those of one from a document. Each is measured alone: one that
/// has been drawn before would have to be taken down first.
Row PageRow(const char* name,
            double limit,
            const char* control,
            const char* peerDocument,
            const char* peer)
{
    return {name,
            limit,
            InServer({"show", "KitControls", control}),
            InServer({"show", peerDocument, peer}),
            Pairs,
            Processors::One,
            std::chrono::nanoseconds::zero()};
}

}  // namespace

std::vector<Row> KitRows()
{
    std::vector<Row> rows;
    for (const Control& control : Controls)
    {
        rows.push_back(
            PageRow(control.row, control.limit, control.name, "PlainControls", control.name));
    }
    rows.push_back(
        PageRow("kit_app_windows_1000", 1.1, "appWindowsOfMany", "KitControls", "appWindows"));
    rows.push_back({"kit_palette_switch", 5.1, InServer({"switch"}), InServer({"repaint"}), Pairs});
    return rows;
}

}  // namespace tvo::bench
