#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace app_manager::testing {

/// An application manager for tests: a child process that serves the three interfaces on the real
/// port, in the test's rendezvous folder, and answers every call with 0. It ends with this object
/// or the test's process. The client may be any process of the test.
///
///     FakeAppManager fake;
///     ...  CreateApplicationManager("cert_approver")
///     ASSERT_TRUE(fake.WaitForCall("ReadyToShowUI cert_approver"));
///     fake.SetCommand(-3);
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

    /// What `GetCommand` gives from now on, at most a few milliseconds later. Subscribers are told.
    void SetCommand(std::int64_t command);

    /// Every call so far, oldest first: the method and its arguments with blanks between,
    /// "ReadyToInitialize cert_approver", "StateChanged cert_approver -2",
    /// "FinishWithInternalError cert_approver ERROR DESCRIPTION".
    std::vector<std::string> Calls();

    /// Waits at most five seconds until this call has come.
    [[nodiscard]] bool WaitForCall(std::string_view line);

private:
    bool Receive(int patienceMs = 5000);

    int m_socket = -1;
    int m_pid = -1;
    std::vector<std::string> m_calls;
};

}  // namespace app_manager::testing
