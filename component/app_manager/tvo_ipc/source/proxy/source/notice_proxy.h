#pragma once

#include <memory>
#include <thread>

#include <shared/common_utils/app_utils/notice/i_notice_factory.h>

#include "app_commands_proxy.h"

namespace app_manager::proxy {

/// Waits on the update handle, which it owns, and tells its owner of changes. Its end stops the
/// thread.
class ApplicationCommands::NoticeProxy final
{
public:
    using INotice = ::common_utils::app_utils::notice::INotice;
    using INoticeFactory = ::common_utils::app_utils::notice::INoticeFactory;

    /// @throws zin::CheckFailedException  for a null factory
    NoticeProxy(ApplicationCommands& owner, std::shared_ptr<INoticeFactory> factory);
    ~NoticeProxy();

    NoticeProxy(const NoticeProxy&) = delete;
    NoticeProxy& operator=(const NoticeProxy&) = delete;

    /// Takes the handle over and starts the thread. Once.
    void Start(unsigned int handle);

private:
    void Process();

    ApplicationCommands& m_owner;
    std::shared_ptr<INoticeFactory> m_factory;
    std::unique_ptr<INotice> m_notice;
    std::thread m_thread;
    unsigned int m_handle;
};

}  // namespace app_manager::proxy
