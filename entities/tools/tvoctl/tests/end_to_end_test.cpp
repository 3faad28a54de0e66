#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>
#include <utility>

#include <gtest/gtest.h>
#include <sys/wait.h>

namespace {

/// A program that runs beside the test, with its output.
class Process
{
public:
    explicit Process(const std::string& command)
        : m_pipe(::popen(("echo $$; exec " + command + " 2>&1").c_str(), "re")),
          m_pid(std::stoi(ReadLine()))
    {}
    ~Process()
    {
        End(SIGKILL);
    }
    Process(const Process&) = delete;
    Process& operator=(const Process&) = delete;

    std::string ReadLine()
    {
        std::string line;
        for (int c = std::fgetc(m_pipe); c != EOF && c != '\n'; c = std::fgetc(m_pipe))
        {
            line += static_cast<char>(c);
        }
        return line;
    }

    /// @param signal  0 to let it end by itself
    /// @returns its exit status, -1 for an end by a signal
    int End(int signal)
    {
        if (m_pipe == nullptr)
        {
            return -1;
        }
        ::kill(m_pid, signal);
        const int status = ::pclose(std::exchange(m_pipe, nullptr));
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }

private:
    FILE* m_pipe;
    pid_t m_pid;
};

const std::string Ctl = std::string(TVO_TVOCTL) + " settings --wait 10 ";

}  // namespace

TEST(EndToEnd, SettingsSurviveTheServiceAndAreWatchedAcrossItsRestart)
{
    std::string folder = (std::filesystem::temp_directory_path() / "tvoctlXXXXXX").string();
    ASSERT_NE(::mkdtemp(folder.data()), nullptr);
    ::setenv("TVO_RUNTIME_DIR", (folder + "/run").c_str(), 1);
    EXPECT_EQ(Process(std::string(TVO_TVOCTL) + " settings get a").End(0), 4);
    std::ofstream(folder + "/tree") << R"({"path":"p","setting":{"%24b":[null,"\u0000"]}})";
    const std::string service =
        std::string(TVO_SETTINGS_MANAGER) + " --database " + folder + "/settings 2>/dev/null";

    auto running = std::make_unique<Process>(service);
    Process watch(Ctl + "watch --initial p");
    EXPECT_EQ(watch.ReadLine(), "initial\tp");
    const struct
    {
        bool isAfterCrash;
        std::string command;
        int status;
        const char* printed;
        const char* watched;
    } rows[] = {
        {false, "set --create p/q ru-RU", 0, "", "created\tp\t{\"q\":\"ru-RU\"}"},
        {false, "set p/q en-US", 0, "", "value\tp/q\t\"en-US\""},
        {true, "get p/q", 0, "en-US", nullptr},
        {false,
         "attr p/q ro",
         0,
         "",
         "attributes\tp/q\t{\"$type\":\"string\",\"readOnly\":true,\"value\":\"en-US\"}"},
        {false, "delete p", 1, "tvoctl: cannot delete 'p': Access denied = 0x80000045", nullptr},
        {true, "attr p/q rw", 0, "", "attributes\tp/q\t\"en-US\""},
        {false, "delete p/q", 0, "", "deleted\tp/q"},
        {true, "load " + folder + "/tree", 0, "", "created\tp/$b\t[null,\"\\u0000\"]"},
        {false, "dump p --json", 0, R"({"path":"p","setting":{"%24b":[null,"\u0000"]}})", nullptr},
    };
    for (const auto& [isAfterCrash, command, status, printed, watched] : rows)
    {
        SCOPED_TRACE(command);
        if (isAfterCrash)
        {
            running->End(SIGKILL);
            running = std::make_unique<Process>(service);
        }
        Process ctl(Ctl + command);
        EXPECT_EQ(ctl.ReadLine(), printed);
        EXPECT_EQ(ctl.End(0), status);
        if (watched != nullptr)
        {
            EXPECT_EQ(watch.ReadLine(), watched);
        }
    }
    EXPECT_EQ(watch.End(SIGTERM), 0);
    std::filesystem::remove_all(folder);
}
