// Several things waited for at once, and children as one of them. In a program of its own: a
// process publishes under one name.

#include <gmock/gmock.h>
#include <sys/resource.h>

#include <tvo/process.h>
#include <tvo/wait_set.h>

#include "linux_support.h"

namespace platform::tests {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Keys = std::vector<std::uint64_t>;

constexpr const char* Connections = "connections/awaited";

std::uint32_t StartShell(const char* script, int output = -1)
{
    const char* const arguments[] = {"child", "-c", script, nullptr};
    const TvoProgram program{"/bin/sh", arguments, nullptr, output};
    std::uint32_t handle = XoInvalidHandle;
    std::uint32_t pid = 0;
    EXPECT_EQ(TvoProcessStart(&program, &handle, &pid), XoOk);
    return handle;
}

class WaitSetTest : public PublishedTest
{
protected:
    WaitSetTest()
    {
        EXPECT_EQ(TvoWaitSetCreate(&set), XoOk);
        WzTvoSetTransportTimeouts(&endpoint.transport, 0, 0);
    }

    ~WaitSetTest() override
    {
        TvoWaitSetRelease(set);
    }

    /// @returns the keys of what is ready
    Keys Wait(std::uint32_t timeout = 10'000)
    {
        Keys keys(10);
        unsigned long received = 0;
        result = TvoWaitSetWait(set, timeout, keys.size(), keys.data(), &received);
        keys.resize(received);
        return keys;
    }

    int Receive()
    {
        return tests::Receive(endpoint.transport, letter);
    }

    void Say(const char* place, const std::string& words)
    {
        raw.push_back(RawSocket::ConnectedTo(place));
        raw.back().Send(words);
    }

    /// Waits for a child's end and closes its handle.
    TvoProcessEnd EndOf(std::uint32_t child)
    {
        EXPECT_EQ(TvoWaitSetAddHandle(set, child, 1), XoOk);
        EXPECT_THAT(Wait(), ElementsAre(1));
        TvoProcessEnd end{};
        EXPECT_EQ(TvoProcessGetEnd(child, &end), XoOk);
        EXPECT_EQ(TvoProcessSend(child, TvoProcessSignal::Kill), XoObjectGone);
        EXPECT_EQ(TvoProcessServes(child, Entity), XoObjectGone);
        TvoWaitSetRemove(set, 1);
        EXPECT_EQ(XoHandleClose(child), XoOk);
        return end;
    }

    /// Something happens and is reported until the operation has done what there is to do.
    void ExpectReady(std::uint64_t key,
                     const std::function<void()>& happen,
                     const std::function<int()>& operation)
    {
        SCOPED_TRACE(key);
        EXPECT_THAT(Wait(0), IsEmpty());
        EXPECT_EQ(result, XoTimedOut);
        happen();
        EXPECT_THAT(Wait(), ElementsAre(key));
        EXPECT_THAT(Wait(), ElementsAre(key)) << "nothing was done about it";
        EXPECT_EQ(operation(), XoOk);
    }

    Endpoint endpoint{"awaited"};
    Letter letter;
    std::vector<RawSocket> raw;
    STvoWaitSet* set = nullptr;
    int result = XoOk;
};

TEST_F(WaitSetTest, EachIsReadyUntilItsOperationHasNothingToDo)
{
    SNotice* notice = nullptr;
    std::uint32_t setter = 0;
    std::uint32_t waiter = 0;
    XoNoticeCreate(&notice);
    XoEventCreate(&setter, &waiter);
    XoNoticeSubscribeToObject(notice, waiter, 2, 0);
    EXPECT_EQ(TvoWaitSetAddHandle(set, endpoint.handle, 1), XoOk);
    EXPECT_EQ(TvoWaitSetAddNotice(set, notice, 2), XoOk);
    EXPECT_EQ(TvoWaitSetAddConnectionRequests(set, 3), XoOk);
    EXPECT_EQ(TvoWaitSetAddTermination(set, 4), XoOk);
    EXPECT_EQ(TvoWaitSetAddNotice(set, notice, 1), XoInvalidArgument) << "key in use";
    EXPECT_EQ(TvoWaitSetAddNotice(set, notice, 9), XoInvalidArgument) << "added already";
    EXPECT_EQ(TvoWaitSetAddHandle(set, setter, 9), XoObjectGone) << "nothing to wait for";
    EXPECT_EQ(TvoWaitSetRemove(set, 9), XoInvalidArgument);

    ExpectReady(
        1, [&] { Say(Connections, Packet()); }, [&] { return Receive(); });
    ExpectReady(
        2, [&] { XoNoticeSetObjectEvent(setter, 2); }, [&] { return NextEvent(notice, 0).first; });
    const auto askTwice = [&]
    {
        Say(Servers, AskFor("offered"));
        Say(Servers, AskFor("offered"));
    };
    ExpectReady(3, askTwice, [&] { return Listen(); });
    EXPECT_THAT(Wait(0), ElementsAre(3)) << "the other one";
    EXPECT_EQ(Listen(), XoOk);
    ExpectReady(
        1, [&] { Say(Connections, Packet()); }, [&] { return Receive(); });

    ::kill(::getpid(), SIGTERM);
    EXPECT_THAT(Wait(), ElementsAre(4));
    EXPECT_THAT(Wait(0), IsEmpty()) << "used up";
    EXPECT_EQ(TvoWaitSetAddReload(set, 5), XoOk);
    EXPECT_EQ(TvoWaitSetAddServerChanges(set, 6), XoOk);
    ::kill(::getpid(), SIGHUP);
    EXPECT_THAT(Wait(), ElementsAre(5));
    EXPECT_THAT(Wait(0), IsEmpty());
    EXPECT_TRUE(::shared::ipc_utils::TryPublishService(Entity, "offered too"));
    EXPECT_THAT(Wait(), ElementsAre(6));
    EXPECT_THAT(Wait(0), IsEmpty());
    TvoWaitSetWake(set);
    EXPECT_THAT(Wait(), IsEmpty());
    EXPECT_EQ(result, XoOk) << "woken";
    raw.clear();
    EXPECT_EQ(Listen(), XoTimedOut);
    XoNoticeRelease(notice);
    XoHandleClose(setter);
    XoHandleClose(waiter);
}

TEST_F(WaitSetTest, RestingListenersComeBack)
{
    const auto expectRest = [&](const char* place, const std::string& words, auto operation)
    {
        Say(place, words);
        ASSERT_THAT(Wait(), ElementsAre(1));
        rlimit limit{};
        ::getrlimit(RLIMIT_NOFILE, &limit);
        const rlimit none{3, limit.rlim_max};
        ::setrlimit(RLIMIT_NOFILE, &none);
        EXPECT_NE(operation(), XoOk) << "no descriptor for the client";
        ::setrlimit(RLIMIT_NOFILE, &limit);
        do
        {
            ASSERT_THAT(Wait(), ElementsAre(1)) << "nothing more happens but time";
        } while (operation() != XoOk);
        TvoWaitSetRemove(set, 1);
    };
    TvoWaitSetAddHandle(set, endpoint.handle, 1);
    expectRest(Connections, Packet(), [&] { return Receive(); });
    TvoWaitSetAddConnectionRequests(set, 1);
    expectRest(Servers, AskFor("offered"), [&] { return Listen(); });
    EXPECT_EQ(XoCmDrop(client, service), XoOk);
}

TEST_F(WaitSetTest, ChildBeginsAfreshAndItsEndIsTold)
{
    // Whatever this process has made of its signals.
    const auto former = std::signal(SIGPIPE, SIG_IGN);
    const Descriptor inheritable(::dup(STDERR_FILENO));
    ASSERT_EQ(TvoWaitSetAddTermination(set, 0), XoOk);
    const struct
    {
        const char* script;
        std::int32_t status;
        std::uint32_t bySignal = 0;
        std::optional<TvoProcessSignal> signal = {};
        bool stops = false;  ///< before the signal is sent
    } rows[] = {
        {"exit 3", 3},
        {"kill -9 $$", 9, 1},
        {"grep -c '^Sig[BI][lg][kn]:.0000000000000000' /proc/self/status | grep -qx 2", 0},
        {"set -- $(cat /proc/$$/stat); test $5 = $$", 0},  // leads its group
        {"test $(ls /proc/self/fd | wc -l) = 4", 0},       // the standard ones and the folder's
        {"kill -STOP $$", 6, 1, TvoProcessSignal::Abort},
        // leaves its group
        {"exec perl -e 'setpgrp(0, getpgrp getppid) or die; kill STOP, $$'",
         6,
         1,
         TvoProcessSignal::Abort,
         true},
        {"while true; do sleep 100; done", 15, 1, TvoProcessSignal::Terminate},
        {"while true; do sleep 100; done", 9, 1, TvoProcessSignal::Kill},
    };
    for (const auto& row : rows)
    {
        SCOPED_TRACE(row.script);
        const std::uint32_t child = StartShell(row.script);
        TvoProcessEnd end{};
        siginfo_t info{};
        EXPECT_TRUE(!row.stops || ::waitid(P_ALL, 0, &info, WSTOPPED | WNOWAIT) == 0);
        if (row.signal)
        {
            EXPECT_EQ(TvoProcessGetEnd(child, &end), XoTimedOut);
            EXPECT_EQ(TvoProcessServes(child, Entity), XoTimedOut) << "that is this process";
            EXPECT_EQ(TvoProcessSend(child, *row.signal), XoOk);
        }
        end = EndOf(child);
        EXPECT_EQ(end.status, row.status);
        EXPECT_EQ(end.bySignal, row.bySignal);
    }
    std::signal(SIGPIPE, former);
}

TEST_F(WaitSetTest, ChildWritesWhereItIsToldAndTakesItsGroupWithIt)
{
    int ends[2] = {-1, -1};
    ASSERT_EQ(::pipe2(ends, O_CLOEXEC), 0);
    const Descriptor reading(ends[0]);
    Descriptor writing(ends[1]);
    const std::uint32_t child = StartShell("sleep 1000 & echo here; echo too >&2", writing.Get());
    writing.Reset();
    EndOf(child);
    std::string written;
    for (char byte = 0; ::read(reading.Get(), &byte, 1) == 1;)
    {
        written += byte;
    }
    EXPECT_EQ(written, "here\ntoo\n") << "and nobody is left who could write more";
}

}  // namespace
}  // namespace platform::tests
