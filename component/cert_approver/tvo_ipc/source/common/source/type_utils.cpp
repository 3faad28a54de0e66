#include <array>
#include <utility>

#include <component/cert_approver/tvo_ipc/type_utils.h>
#include <component/logger/logger.h>
#include <component/plk/result_codes.h>

namespace cert_approver::common {

namespace {

/// What both sides know; anything else is refused.
template <typename Domain>
using Table = std::array<std::pair<Domain, unsigned char>, 2>;

constexpr Table<Verdict> Verdicts = {{{Verdict::Close, 0}, {Verdict::Approve, 1}}};
constexpr Table<Mode> Modes = {{{Mode::Mode0, 0}, {Mode::Mode1, 1}}};

template <typename Domain>
bool FindWire(const Table<Domain>& table, Domain value, unsigned char& wire)
{
    for (const auto& [domain, byte] : table)
    {
        if (domain == value)
        {
            wire = byte;
            return true;
        }
    }
    return false;
}

template <typename Domain>
bool FindDomain(const Table<Domain>& table, unsigned char wire, Domain& value)
{
    for (const auto& [domain, byte] : table)
    {
        if (byte == wire)
        {
            value = domain;
            return true;
        }
    }
    return false;
}

}  // namespace

int VerdictToIpc(Verdict verdict, unsigned char& ipcVerdict)
{
    if (FindWire(Verdicts, verdict, ipcVerdict))
    {
        return plk::codes::Ok;
    }
    TVO_LOG_WARNING("Error converting from CertApprover decision to IPC, value: {}",
                    static_cast<unsigned>(verdict));
    return plk::codes::NotFound;
}

int IpcToVerdict(unsigned char ipcVerdict, Verdict& verdict)
{
    if (FindDomain(Verdicts, ipcVerdict, verdict))
    {
        return plk::codes::Ok;
    }
    TVO_LOG_WARNING("Error converting from IPC decision CertApprover decision, value: {}",
                    static_cast<unsigned>(ipcVerdict));
    return plk::codes::NotFound;
}

int ModeToIpc(Mode mode, unsigned char& ipcMode)
{
    if (FindWire(Modes, mode, ipcMode))
    {
        return plk::codes::Ok;
    }
    TVO_LOG_WARNING("Error converting from CertApprover Mode to IPC, value: {}",
                    static_cast<unsigned>(mode));
    return plk::codes::NotFound;
}

int IpcToMode(unsigned char ipcMode, Mode& mode)
{
    if (FindDomain(Modes, ipcMode, mode))
    {
        return plk::codes::Ok;
    }
    TVO_LOG_WARNING("Error converting from IPC mode CertApprover mode, value: {}",
                    static_cast<unsigned>(ipcMode));
    return plk::codes::NotFound;
}

}  // namespace cert_approver::common
