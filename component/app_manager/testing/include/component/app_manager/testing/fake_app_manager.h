#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace app_manager::testing {

/// What the fake manager is to do.
struct Order
{
    enum What
    {
        Nothing,
        Command,  ///< gives this value with `GetCommand` from now on and says that it has changed
    };

    What what = Nothing;
    std::int64_t value = 0;
};

/// An application manager for tests: a child process that serves the three interfaces on the real
/// port, in the test's rendezvous folder, and answers every call with 0. It ends with this object
/// or the test's process. The client may be any process of the test.
///
///     FakeAppManager fake;
///     ...  CreateApplicationManager("cert_approver")
///     ASSERT_TRUE(fake.WaitForCall("ReadyToShowUI cert_approver"));
///     fake.Do({Order::Command, -3});
///     ASSERT_TRUE(fake.WaitForCall("StateChanged cert_approver -2"));
///
/// As the child is forked, make it on the main thread, before other threads, before the process
/// publishes a service and before a `PlatformDouble` is scripted; what is scripted later, and all
/// that is counted, is the test's alone. One at a time, for use by one thread.
class FakeAppManager final
{
public:
    /// Serves once this returns.
    FakeAppManager();
    ~FakeAppManager();
    FakeAppManager(const FakeAppManager&) = delete;
    FakeAppManager& operator=(const FakeAppManager&) = delete;

    /// Returns when it is done: the next call meets it.
    void Do(const Order& order);

    /// Every call so far, oldest first: the method and its arguments with blanks between,
    /// "ReadyToInitialize cert_approver", "StateChanged cert_approver -2",
    /// "FinishWithInternalError cert_approver ERROR DESCRIPTION".
    std::vector<std::string> Calls();

    /// Waits at most five seconds until this call has come.
    [[nodiscard]] bool WaitForCall(std::string_view line);

private:
    bool Receive();

    int m_socket = -1;
    int m_pid = -1;
    bool m_isDone = false;
    std::vector<std::string> m_calls;
};

}  // namespace app_manager::testing
