#include "terminal/command_slot.h"

#include <component/app_manager/tvo_ipc/command_values.h>
#include <component/logger/logger.h>
#include <xo/notice.h>

namespace app_manager::service {

CommandSlot::CommandSlot()
{
    const int code = XoEventCreate(&m_setter, &m_waiter);
    if (code != XoOk)
    {
        TVO_LOG_WARNING("Commands cannot be announced: {:#x}", static_cast<std::uint32_t>(code));
    }
}

CommandSlot::~CommandSlot()
{
    XoHandleClose(m_setter);
    XoHandleClose(m_waiter);
}

void CommandSlot::Set(std::int64_t command)
{
    if (m_command != commands::CloseWindow)
    {
        m_command = command;
        m_isFetched = false;
        AnnounceAgain();
    }
}

std::optional<std::int64_t> CommandSlot::Fetch()
{
    m_isFetched = true;
    return m_command;
}

void CommandSlot::AnnounceAgain() const
{
    if (!m_isFetched)
    {
        XoNoticeSetObjectEvent(m_setter, update_events::CommandChanged);
    }
}

}  // namespace app_manager::service
