#include "window_stage.h"

#include <chrono>
#include <ctime>
#include <stdexcept>
#include <thread>

#include <linux/input-event-codes.h>

#include <support/terminal_session.h>

namespace tvo::bench {
namespace {

using namespace std::chrono_literals;

constexpr QSize ScreenSize(1280, 800);

/// In the corner of the dialog's information panel, where it is plain, and the panel's colour.
constexpr QPoint PanelPlace(365, 320);
constexpr QRgb PanelColor = qRgb(0x19, 0x1B, 0x1E);

std::chrono::nanoseconds ProcessorTime(pid_t process)
{
    clockid_t clock = 0;
    timespec time{};
    if (::clock_getcpuclockid(process, &clock) != 0 || ::clock_gettime(clock, &time) != 0)
    {
        throw std::runtime_error("the program has ended");
    }
    return std::chrono::seconds(time.tv_sec) + std::chrono::nanoseconds(time.tv_nsec);
}

}  // namespace

WindowStage::WindowStage() : m_display(Folder() / "wayland", ScreenSize) {}

void WindowStage::Start(const std::filesystem::path& program,
                        const std::vector<std::string>& arguments)
{
    auto environment = support::TerminalEnvironment(Folder());
    environment["XDG_CACHE_HOME"] = Folder() / "cache";
    // Qt's tool takes the language of its texts from here.
    environment["LC_ALL"] = "C.UTF-8";
    environment["LANGUAGE"] = "en";
    m_program.reset();
    m_program = std::make_unique<support::Process>(
        support::Process::Command{program, arguments, environment, {}});
}

void WindowStage::WaitForDialog()
{
    if (!m_display.WaitForPixel(PanelPlace, PanelColor))
    {
        throw std::runtime_error("no dialog came up: " + Errors());
    }
}

void WindowStage::Refuse()
{
    m_display.PressKey(KEY_ESC);
}

void WindowStage::WaitForRest()
{
    const auto deadline = std::chrono::steady_clock::now() + support::Patience;
    while (IsBusy())
    {
        if (std::chrono::steady_clock::now() > deadline)
        {
            throw std::runtime_error("the program does not come to rest");
        }
    }
}

void WindowStage::WaitForNoWindow()
{
    if (!m_display.WaitForNoToplevel())
    {
        throw std::runtime_error("the window does not go");
    }
}

void WindowStage::Clear()
{
    m_program->Kill();
    WaitForNoWindow();
}

std::filesystem::path WindowStage::Folder() const
{
    return m_folder.path().toStdString();
}

std::string WindowStage::Errors()
{
    return m_program->Errors();
}

bool WindowStage::IsBusy() const
{
    constexpr auto Watch = 20ms;
    constexpr auto Negligible = 100us;
    const auto before = ProcessorTime(m_program->Id());
    std::this_thread::sleep_for(Watch);
    return ProcessorTime(m_program->Id()) - before > Negligible;
}

}  // namespace tvo::bench
