#include "notice_proxy.h"

#include <utility>
#include <vector>

#include <component/app_manager/tvo_ipc/command_values.h>
#include <component/logger/logger.h>
#include <component/plk/exceptions.h>
#include <component/plk/result_codes.h>
#include <xo/handle.h>

namespace app_manager::proxy {

ApplicationCommands::NoticeProxy::NoticeProxy(ApplicationCommands& owner,
                                              std::shared_ptr<INoticeFactory> factory)
    : m_owner(owner), m_factory(std::move(factory)), m_handle(XoInvalidHandle)
{
    ZIN_CHECK(m_factory, "NoticeFactory is nullptr");
}

ApplicationCommands::NoticeProxy::~NoticeProxy()
{
    if (m_notice)
    {
        m_notice->DropAndWake();
    }
    if (m_thread.joinable())
    {
        m_thread.join();
    }
    m_notice.reset();
    if (m_handle != XoInvalidHandle)
    {
        XoHandleClose(m_handle);
    }
}

void ApplicationCommands::NoticeProxy::Start(unsigned int handle)
{
    m_handle = handle;
    m_notice = m_factory->CreateNotice();
    m_notice->SubscribeToObject(handle,
                                update_events::Closed | update_events::CommandChanged,
                                reinterpret_cast<unsigned long>(this));
    m_thread = std::thread(&NoticeProxy::Process, this);
    TVO_LOG_INFO("ApplicationCommands::NoticeProxy::Start");
}

void ApplicationCommands::NoticeProxy::Process()
{
    std::vector<EventDesc> events(1);
    for (;;)
    {
        const int result = m_notice->WaitEvents(1, events);
        if (result == plk::codes::NotFound)
        {
            return;
        }
        if (result != plk::codes::Ok || events.empty())
        {
            continue;
        }
        if ((events.front().events & update_events::Closed) != 0)
        {
            TVO_LOG_CRITICAL(
                "ApplicationCommands: Update handle unexpectedly closed. Server malfunction?");
            return;
        }
        m_owner.NotifyListeners();
    }
}

}  // namespace app_manager::proxy
