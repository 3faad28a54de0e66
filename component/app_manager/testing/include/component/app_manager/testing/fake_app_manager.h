#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace app_manager::testing {

/// What the fake manager is to do from now on. Methods go by their bare names, "Ping" for instance.
struct Order
{
    enum What
    {
        Nothing,
        Command,            ///< gives this value with `GetCommand` and says that it has changed
        CloseUpdateHandle,  ///< and serves on
        Answer,  ///< the method with this value; a `GetUpdateHandle` with one brings no handle
        Refuse,  ///< lets the method's calls fail
        Ignore,  ///< never answers the method's calls
    };

    What what = Nothing;
    std::int64_t value = 0;
    char method[32] = {};
};

/// An application manager for tests: a child process that serves the three interfaces on the real
/// port, in the test's rendezvous folder, and answers every call with 0 unless told otherwise. It
/// ends with this object or the test's process. The client may be any process of the test.
///
///     FakeAppManager fake;
///     ...  CreateApplicationManager("cert_approver")
///     ASSERT_TRUE(fake.WaitForCall("ReadyToShowUI cert_approver"));
///     fake.Do({.what = Order::Command, .value = -3});
///     ASSERT_TRUE(fake.WaitForCall("StateChanged cert_approver -2"));
///     fake.Do({.what = Order::Refuse, .method = "Ping"});
///
/// As the child is forked, make it on the main thread, before other threads, before the process
/// publishes a service and before a `PlatformDouble` is scripted; what is scripted later, and all
/// that is counted, is the test's alone. One at a time, for use by one thread.
class FakeAppManager final
{
public:
    /// Serves once this returns.
    /// @param refused  name of a service that lets no client in; see `service_names`
    explicit FakeAppManager(const char* refused = "");
    ~FakeAppManager();
    FakeAppManager(const FakeAppManager&) = delete;
    FakeAppManager& operator=(const FakeAppManager&) = delete;

    /// Returns when it is done: the next call meets it.
    void Do(const Order& order);

    /// Every call so far, oldest first: the method and its arguments with blanks between,
    /// "ReadyToInitialize cert_approver", "StateChanged cert_approver -2",
    /// "FinishWithInternalError cert_approver ERROR DESCRIPTION".
    std::vector<std::string> Calls();

    /// Waits at most five seconds until this call has come so often since the start.
    [[nodiscard]] bool WaitForCall(std::string_view line, long times = 1);

    /// Kills the manager. What had come before is known still.
    void Die();

private:
    bool Receive();

    int m_socket = -1;
    int m_pid = -1;
    bool m_isDone = false;
    std::vector<std::string> m_calls;
};

}  // namespace app_manager::testing
