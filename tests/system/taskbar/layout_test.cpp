#include <optional>
#include <stdexcept>

#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <linux/input-event-codes.h>

#include <support/compositor.h>
#include <support/picture.h>
#include <support/terminal_session.h>

namespace {

class LayoutControl : public testing::Test
{
protected:
    [[nodiscard]] support::Process::Command Program(const char* path) const
    {
        // Qt's Wayland plugin leaves some of its objects to the end of the process.
        auto environment = support::TerminalEnvironment(m_folder);
        environment["LSAN_OPTIONS"] = "detect_leaks=0";
        environment["QT_WAYLAND_DISABLE_WINDOWDECORATION"] = "1";
        return {path, {}, environment, {}};
    }

    void Start()
    {
        m_program.emplace(Program(TVO_LAYOUT_WINDOW));
        ASSERT_TRUE(m_display->WaitForPixel({0, 0}, qRgb(0x40, 0x40, 0x40)));
    }

    void Expect(const std::string& text)
    {
        if (!m_program->WaitForText(text))
        {
            throw std::runtime_error("No \"" + text + "\" in:\n" + m_program->Errors());
        }
    }

    /// Waits until the taskbar at the bottom of its window names the layout. @returns where
    QPoint PlaceOf(const std::string& layout)
    {
        const QRect bar(0, 232, 800, 48);
        std::optional<QPoint> place;
        const auto isNamed = [&](const QImage& screen)
        {
            const QImage row = screen.copy(bar);
            place =
                support::FindText(row, layout, {.background = row.pixel(0, 0), .demiBold = true});
            return place.has_value();
        };
        if (!m_display->WaitForScreen(isNamed))
        {
            throw std::runtime_error("The taskbar does not name " + layout);
        }
        return *place + bar.topLeft();
    }

    const QTemporaryDir m_temporary;
    const std::filesystem::path m_folder = m_temporary.path().toStdString();
    std::optional<support::Compositor> m_display{std::in_place,
                                                 m_folder / "wayland",
                                                 QSize(800, 600)};
    std::optional<support::Process> m_program;
    const QPoint m_button{150, 150};
};

}  // namespace

TEST_F(LayoutControl, WorksWheneverTheCompositorOffersLayouts)
{
    m_display->SetLayouts("us,ru");
    Start();
    Expect("logged 1, level 3: QueryCurrentLayout on uninitialized object\n");
    m_display->Click(m_button);
    Expect("logged 2, level 3: RequestLayoutChange on uninitialized object\n");
    m_display->OfferLayoutControl();
    Expect("told 1: us.");
    m_display->WithdrawLayoutControl();
    m_display->Click(m_button);
    Expect("logged 3, level 3: RequestLayoutChange on uninitialized object\n");
    m_display->OfferLayoutControl();
    Expect("told 2: us.");
    m_display->Click(m_button);
    Expect("told 3: ru.");
    m_display->RequestClose();
    // Qt 6.4 may hang when it takes its own connection down, so the exit is not waited for.
    Expect("gone");
}

TEST_F(LayoutControl, ClickChangesWhatTheKeyboardTypes)
{
    m_display->SetLayouts("us,ru");
    m_display->OfferLayoutControl();
    Start();
    Expect("told 1: us.");
    Expect("shows $en-US$");
    m_display->PressKey(KEY_F);
    Expect("typed f\n");
    m_display->Click(m_button);
    Expect("told 2: ru.");
    Expect("shows $ru-RU$");
    m_display->PressKey(KEY_F);
    Expect("typed fа\n");
    m_display->Click(m_button);
    Expect("told 3: us.");
    m_display->PressKey(KEY_F);
    Expect("typed fаf\n");
}

TEST_F(LayoutControl, MenuOfTheTaskbarChangesWhatTheKeyboardTypes)
{
    m_display->SetLayouts("us,ru");
    m_display->OfferLayoutControl();
    const support::Process taskbar(Program(TVO_TASKBAR_PREVIEW));
    m_display->Click(PlaceOf("EN"));
    // The second entry of the menu.
    m_display->PressKey(KEY_TAB);
    m_display->PressKey(KEY_TAB);
    m_display->PressKey(KEY_ENTER);
    PlaceOf("RU");
    Start();
    Expect("told 1: ru.");
    m_display->PressKey(KEY_F);
    Expect("typed а\n");
}

TEST_F(LayoutControl, TakesWhateverTheCompositorTells)
{
    struct Event
    {
        std::uint32_t group;
        std::string layouts;
        std::string answer;
    };
    m_display->OfferLayoutControl();
    Start();
    Expect("told 1: us.");
    for (const Event& event :
         {Event{1, "us,ru", "told 2: ru."},
          Event{2, "us,ru", "level 4: Invalid layout group: 2 for layouts: us,ru\n"},
          Event{0, "", "told 3: ."},
          Event{UINT32_MAX, "us", "level 4: Invalid layout group: 4294967295 for"},
          Event{1, ",de", "told 4: de."}})
    {
        m_display->AnnounceLayout(event.group, event.layouts);
        Expect(event.answer);
    }
}

TEST_F(LayoutControl, EndsInOrderWithItsCompositor)
{
    m_display->OfferLayoutControl();
    Start();
    Expect("shows $en-US$");
    m_display.reset();
    EXPECT_EQ(m_program->ExitStatus(), 1);
    EXPECT_TRUE(m_program->Errors().ends_with("Did the Wayland compositor die?\n"))
        << m_program->Errors();
}
