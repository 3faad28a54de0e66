#include <chrono>
#include <csignal>
#include <stdexcept>
#include <thread>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "window_rows.h"
#include "window_stage.h"

namespace tvo::bench {
namespace {

/// The writing end of a named pipe.
class Bell
{
public:
    explicit Bell(std::filesystem::path path) : m_path(std::move(path))
    {
        // A listener that has gone fails the row, not the program.
        std::signal(SIGPIPE, SIG_IGN);
        if (::mkfifo(m_path.c_str(), 0600) != 0)
        {
            throw std::runtime_error("no named pipe");
        }
    }

    ~Bell()
    {
        ::close(m_end);
    }

    Bell(const Bell&) = delete;
    Bell& operator=(const Bell&) = delete;

    /// Waits until somebody listens.
    void Open()
    {
        const auto deadline = std::chrono::steady_clock::now() + support::Patience;
        while (m_end < 0)
        {
            if (std::chrono::steady_clock::now() > deadline)
            {
                throw std::runtime_error("nobody listens to the bell");
            }
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
            m_end = ::open(m_path.c_str(), O_WRONLY | O_CLOEXEC | O_NONBLOCK);
        }
    }

    /// @returns whether somebody listens
    bool Ring() const
    {
        const char byte = 1;
        return ::write(m_end, &byte, 1) == 1;
    }

    const std::filesystem::path& Path() const
    {
        return m_path;
    }

private:
    std::filesystem::path m_path;
    int m_end = -1;
};

class Loads final : public Contender
{
public:
    Loads()
    {
        m_stage.Start(TVO_BENCH_BARE_LOADER, {m_bell.Path()});
        m_bell.Open();
        m_stage.WaitForRest();
    }

    void Run(int /*count*/) override
    {
        Ring();
        m_stage.WaitForDialog();
    }

    void Rest() override
    {
        // Qt's Wayland client ends with an assertion now and then where a window goes in the moment
        // in which its first picture has come up.
        m_stage.WaitForRest();
        Ring();
        m_stage.WaitForNoWindow();
        m_stage.WaitForRest();
    }

private:
    void Ring()
    {
        if (!m_bell.Ring())
        {
            throw std::runtime_error("the bare Loader has ended: " + m_stage.Errors());
        }
    }

    WindowStage m_stage;
    Bell m_bell{m_stage.Folder() / "bell"};
};

#ifdef TVO_BENCH_QML_TOOL

class ToolStarts final : public Contender
{
public:
    void Run(int /*count*/) override
    {
        m_stage.Start(TVO_BENCH_QML_TOOL,
                      {"-I", TVO_BENCH_MODULES, TVO_BENCH_DIALOG "/shown_dialog.qml"});
        m_stage.WaitForDialog();
    }

    void Rest() override
    {
        m_stage.Clear();
    }

private:
    WindowStage m_stage;
};

#endif

}  // namespace

std::unique_ptr<Contender> MakeLoads()
{
    return std::make_unique<Loads>();
}

#ifdef TVO_BENCH_QML_TOOL
std::unique_ptr<Contender> MakeToolStarts()
{
    return std::make_unique<ToolStarts>();
}
#endif

}  // namespace tvo::bench
