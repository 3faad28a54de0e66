#include "rows.h"

#include "application_calls.h"
#include "bus_calls.h"
#include "event_wake_ups.h"
#include "kit_rows.h"
#include "log_lines.h"
#include "server_process.h"
#include "settings_rows.h"
#include "socket_calls.h"
#include "terminal_calls.h"
#include "terminal_starts.h"
#include "window_rows.h"

namespace tvo::bench {
namespace {

std::unique_ptr<Contender> MakeCallsOfOne()
{
    return MakeSmallCalls(1);
}

std::unique_ptr<Contender> MakeCallsOfOneAmong64()
{
    return MakeSmallCalls(64);
}

#ifdef TVO_BENCH_DCONF
std::unique_ptr<Contender> MakeNotificationsInMemory()
{
    return MakeNotifications(Medium::Memory);
}

std::unique_ptr<Contender> MakeDconfNotificationsInMemory()
{
    return MakeDconfNotifications(Medium::Memory);
}

std::unique_ptr<Contender> MakeNotificationsOnDisk()
{
    return MakeNotifications(Medium::Disk);
}

std::unique_ptr<Contender> MakeDconfNotificationsOnDisk()
{
    return MakeDconfNotifications(Medium::Disk);
}
#endif

}  // namespace

std::vector<Row> AllRows()
{
    std::vector<Row> rows{
        {"call_small", 1.25, MakeCallsOfOne, MakePacketCalls},
#ifdef TVO_BENCH_SDBUS
        {"call_small_sdbus", 0.90, MakeCallsOfOne, MakePeerBusCalls},
        {"call_small_dbus_daemon", 0.34, MakeCallsOfOne, MakeDaemonBusCalls},
#endif
        {"call_64_clients", 1.15, MakeCallsOfOneAmong64, MakeCallsOfOne},
        {"call_560k", 5.8, MakeLargeCalls, MakeStreamCalls},
        {"approve_roundtrip", 1.6, MakeApprovals, MakeCallsOfOne},
        {"event_wakeup", 1.3, MakeEventWakeUps, MakePacketWakeUps},
        {"ping", 1.6, MakePings, MakeCallsOfOne},
        {"command", 2.0, MakeCommands, MakePacketWakeUps},
        {"log_suppressed", 1.5, MakeSuppressedLines, MakeVirtualCalls},
        {"log_written", 1.3, MakeWrittenLines, MakeSpdlogLines},
        {"settings_set_durable", 1.5, MakeDurableWrites, MakeDurableUpdates, 41},
        {"settings_get", 3.0, MakeReads, MakeCallsOfOne},
#ifdef TVO_BENCH_DCONF
        {"settings_notify", 0.2, MakeNotificationsInMemory, MakeDconfNotificationsInMemory},
        {"settings_notify_disk", 0.6, MakeNotificationsOnDisk, MakeDconfNotificationsOnDisk},
        {"settings_write_10k", 0.6, MakeTreeWrites, MakeDconfTreeWrites, 21},
        {"settings_read_10k", 3.0, MakeTreeReads, MakeDconfTreeReads, 41},
#endif
#ifdef TVO_BENCH_PROTOBUF
        {"settings_serialize_10k", 1.2, MakeSerializations, MakeProtobufSerializations},
#endif
        {"request_to_pixel", 1.3, MakeRequests, MakeLoads, 41, Processors::All},
        {"terminal_start", 1.2, MakeTerminalStarts, MakeProgramStarts, 21, Processors::All},
#ifdef TVO_BENCH_QML_TOOL
        {"start_to_ready", 1.3, MakeApplicationStarts, MakeToolStarts, 21, Processors::All},
#endif
    };
    for (Row& row : KitRows())
    {
        rows.push_back(std::move(row));
    }
    return rows;
}

const std::map<std::string, Server>& ServersByName()
{
    static const std::map<std::string, Server> servers{
        {"approvals", ServeApprovals},
        {"commands", ServeCommands},
        {"controls", ServeControls},
#ifdef TVO_BENCH_SDBUS
        {"daemon_bus", ServeDaemonBus},
        {"peer_bus", ServePeerBus},
#endif
#ifdef TVO_BENCH_DCONF
        {"dconf", ServeDconf},
        {"dconf_observer", ServeDconfObserver},
#endif
        {"echo", ServeEcho},
        {"event_wake_ups", ServeEventWakeUps},
        {"packet_wake_ups", ServePacketWakeUps},
        {"packets", ServePackets},
        {"pings", ServePings},
        {"settings_observer", ServeObserver},
        {"stream", ServeStream},
    };
    return servers;
}

}  // namespace tvo::bench
