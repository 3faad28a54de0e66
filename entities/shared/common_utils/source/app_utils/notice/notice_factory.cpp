#include <utility>

#include <component/plk/exceptions.h>
#include <shared/common_utils/app_utils/notice/notice.h>
#include <shared/common_utils/app_utils/notice/notice_factory.h>

namespace common_utils::app_utils::notice {

NoticeFactory::NoticeFactory(std::shared_ptr<INoticeApi> api) : m_api(std::move(api))
{
    ZIN_CHECK(m_api, "Notice api is nullptr");
}

std::unique_ptr<INotice> NoticeFactory::CreateNotice()
{
    return std::make_unique<Notice>(m_api);
}

}  // namespace common_utils::app_utils::notice
