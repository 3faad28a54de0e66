// The linker's option --wrap=SYMBOL leads every call of SYMBOL to __wrap_SYMBOL, and __real_SYMBOL
// to the port. CMakeLists.txt reads the symbols from this file; a wrong one does not link.

#include <atomic>

#include <shared/ipc_utils/publish.h>
#include <tvo/task.h>
#include <wz/transport.h>
#include <xo/notice.h>

#include "run.h"

namespace platform::testing {
namespace {

using std::size_t;
using std::uint16_t;
using std::uint32_t;
using std::uint64_t;
using Text = const char*;
using Target =
    std::optional<std::pair<shared::ipc_utils::NameBuffer, shared::ipc_utils::NameBuffer>>;

}  // namespace

// `RealCALL` is the port's function, `WrappedCALL` what runs instead of it; the body follows.
#define TVO_WRAP(call, symbol, result, parameters)         \
    result Real##call parameters asm("__real_" symbol);    \
    result Wrapped##call parameters asm("__wrap_" symbol); \
    result Wrapped##call parameters

// A call that only its script stands before.
#define TVO_PLAY(call, symbol, result, parameters, ...)  \
    TVO_WRAP(call, symbol, result, parameters)           \
    {                                                    \
        return Run(Call::call, Real##call, __VA_ARGS__); \
    }

// clang-format off
TVO_PLAY(CmConnect, "_Z11XoCmConnectPKcS0_jPjS1_", int,
         (Text server, Text name, uint32_t ms, uint32_t* h, uint32_t* r), server, name, ms, h, r)
TVO_PLAY(CmListen, "_Z10XoCmListenPKcjPcS1_", int,
         (Text filter, uint32_t ms, char* client, char* service), filter, ms, client, service)
TVO_PLAY(CmAccept, "_Z10XoCmAcceptPKcS0_jjPj", int,
         (Text client, Text service, uint32_t r, uint32_t l, uint32_t* h), client, service, r, l, h)
TVO_PLAY(CmDrop, "_Z8XoCmDropPKcS0_", int, (Text client, Text service), client, service)
TVO_PLAY(HandleClose, "_Z13XoHandleClosej", int, (uint32_t handle), handle)
TVO_PLAY(NoticeCreate, "_Z14XoNoticeCreatePP7SNotice", int, (SNotice** notice), notice)
TVO_PLAY(NoticeSubscribeToObject, "_Z25XoNoticeSubscribeToObjectP7SNoticejjm", int,
         (SNotice* notice, uint32_t h, uint32_t mask, unsigned long id), notice, h, mask, id)
TVO_PLAY(NoticeGetEvent, "_Z16XoNoticeGetEventP7SNoticemmP9EventDescPm", int,
         (SNotice* s, unsigned long ms, unsigned long n, EventDesc* e, unsigned long* g),
         s, ms, n, e, g)
TVO_PLAY(NoticeUnsubscribeFromObject, "_Z29XoNoticeUnsubscribeFromObjectP7SNoticej", int,
         (SNotice* notice, uint32_t handle), notice, handle)
TVO_PLAY(NoticeUnsubscribeFromEvent, "_Z28XoNoticeUnsubscribeFromEventP7SNoticem", int,
         (SNotice* notice, unsigned long id), notice, id)
TVO_PLAY(NoticeDropAndWake, "_Z19XoNoticeDropAndWakeP7SNotice", int, (SNotice* notice), notice)
TVO_PLAY(NoticeSetObjectEvent, "_Z22XoNoticeSetObjectEventjj", int,
         (uint32_t handle, uint32_t mask), handle, mask)
TVO_PLAY(LocatorRegister, "_Z22ServiceLocatorRegisterPKcPKvjPm", uint32_t,
         (Text name, const void* o, uint32_t size, uint64_t* id), name, o, size, id)
TVO_PLAY(LocatorConnect, "_Z21ServiceLocatorConnectPKc", uint32_t, (Text name), name)
TVO_PLAY(LocatorGetRiid, "_Z21ServiceLocatorGetRiidjPKc", uint16_t,
         (uint32_t connection, Text endpoint), connection, endpoint)
TVO_PLAY(TaskSetComponentTree, "_Z23TvoTaskSetComponentTreejPK16TvoComponentTree", int,
         (uint32_t self, const TvoComponentTree* tree), self, tree)
TVO_PLAY(TaskConnectToService, "_Z23TvoTaskConnectToServicejjPKc", int,
         (uint32_t client, uint32_t server, Text name), client, server, name)
TVO_PLAY(RandomGenerate, "_Z17TvoRandomGeneratemPv", int, (size_t size, void* buffer), size, buffer)
TVO_PLAY(PublishService, "_ZN6shared9ipc_utils17TryPublishServiceEPKcS2_", bool,
         (Text interfaceName, Text service), interfaceName, service)
TVO_PLAY(FindTarget, "_ZN6shared9ipc_utils27FindConnectionTargetForTypeEPKcj", Target,
         (Text interfaceName, uint32_t ms), interfaceName, ms)
// clang-format on

TVO_WRAP(Sleep, "_Z7XoSleepj", void, (uint32_t milliseconds))
{
    const auto sleep = [](uint32_t ms)
    {
        RealSleep(ms);
        return XoOk;
    };
    Run(Call::Sleep, +sleep, milliseconds);
}

namespace {

/// The port's operations, the same for every transport.
std::atomic<const WzTvoTransportOperations*> g_real;

/// Leads one of the operations past the script.
template <Call call, auto operation>
constexpr auto Lead = [](auto... arguments)
{
    return Run(call, (*g_real.load()).*operation, arguments...);
};

constexpr WzTvoTransportOperations Operations{
    Lead<Call::TransportCall, &WzTvoTransportOperations::call>,
    Lead<Call::TransportReceive, &WzTvoTransportOperations::receive>,
    Lead<Call::TransportReply, &WzTvoTransportOperations::reply>};

}  // namespace

TVO_WRAP(TransportInit,
         "_Z19WzTvoTransport_InitP14WzTvoTransportjPKvj",
         void,
         (WzTvoTransport * transport, uint32_t handle, const void* options, uint32_t size))
{
    RealTransportInit(transport, handle, options, size);
    g_real = transport->operations;
    transport->operations = &Operations;
}

}  // namespace platform::testing
