#include "front/control_handler.h"

#include <vector>

#include <component/app_manager/tvo_ipc/command_values.h>
#include <component/app_manager/tvo_ipc/control_words.h>
#include <component/logger/logger.h>

namespace app_manager::service {
namespace {

namespace refusals = control::refusals;
using control::Kind;
using control::State;
using Afterwards = SupervisedChild::Afterwards;

}  // namespace

Outcome ControlHandler::Serve(const ServiceCall& call)
{
    switch (call.request->mid)
    {
        case control::ListMid:
            return List(call);
        case control::StatusMid:
            return Status(call);
        case control::CommandMid:
            return Command(call);
        default:
            return Outcome::Reject;
    }
}

Outcome ControlHandler::List(const ServiceCall& call)
{
    const auto* const request = call.Request<control::ListRequest>();
    if (request == nullptr)
    {
        return Outcome::Reject;
    }
    std::vector<control::Entry> entries;
    for (const auto& child : m_terminal.All())
    {
        const SupervisedChild& supervision = child->Supervision();
        entries.push_back(
            {child->Name(), supervision.Config().kind, supervision.State(), child->Pid()});
    }
    auto& response = call.Response<control::ListResponse>();
    return control::PackList(entries, request->first, response, *call.responseArena)
               ? Outcome::Answer
               : Outcome::Reject;
}

Outcome ControlHandler::Status(const ServiceCall& call)
{
    const auto* const request = call.Request<control::StatusRequest>();
    const auto name =
        request != nullptr ? control::ReadName(*call.requestArena, request->name) : std::nullopt;
    if (!name)
    {
        return Outcome::Reject;
    }
    auto& response = call.Response<control::StatusResponse>();
    const ManagedChild* const child = m_terminal.Find(*name);
    if (child == nullptr)
    {
        response.result = refusals::UnknownName;
        return Outcome::Answer;
    }
    const auto status = child->Supervision().Status(m_terminal.Now());
    return control::PackStatus(status, response, *call.responseArena) ? Outcome::Answer
                                                                      : Outcome::Reject;
}

Outcome ControlHandler::Command(const ServiceCall& call)
{
    const auto* const request = call.Request<control::CommandRequest>();
    const auto name =
        request != nullptr ? control::ReadName(*call.requestArena, request->name) : std::nullopt;
    if (!name)
    {
        return Outcome::Reject;
    }
    const int result = Obey(*name, request->command);
    TVO_LOG_INFO("Process {} asks for {} of {}: {}",
                 call.caller.pid,
                 control::CommandWord(static_cast<control::Command>(request->command)),
                 *name,
                 result == 0 ? "accepted" : control::RefusalText(result));
    call.Response<control::CommandResponse>().result = result;
    return Outcome::Answer;
}

int ControlHandler::Obey(std::string_view name, std::uint8_t number)
{
    const auto command = control::ReadCommand(number);
    ManagedChild* const child = m_terminal.Find(name);
    if (!command)
    {
        return refusals::BadRequest;
    }
    if (child == nullptr)
    {
        return refusals::UnknownName;
    }
    if (m_terminal.IsStopping())
    {
        return refusals::IsStopping;
    }
    if (*command == control::Command::Restart)
    {
        child->Supervision().Stop(m_terminal.Now(), Afterwards::AtOnce, "restarted by command");
        return 0;
    }
    const ChildConfig& config = child->Supervision().Config();
    if (config.kind == Kind::Service)
    {
        return refusals::NotForServices;
    }
    return config.commands.contains(*command) ? Send(*child, *command) : refusals::NotAllowed;
}

int ControlHandler::Send(ManagedChild& child, control::Command command)
{
    SupervisedChild& supervision = child.Supervision();
    if (command == control::Command::Close)
    {
        if (supervision.State() == State::Closed)
        {
            return refusals::AlreadyClosed;
        }
        supervision.Stop(m_terminal.Now(), Afterwards::StayAway, "closed by command");
        return 0;
    }
    if (supervision.State() != State::Ready)
    {
        return refusals::NotReady;
    }
    child.Commands()->Set(command == control::Command::Show ? commands::ShowWindow
                                                            : commands::HideWindow);
    return 0;
}

}  // namespace app_manager::service
