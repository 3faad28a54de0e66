#pragma once

#include <memory>

#include <shared/common_utils/app_utils/notice/i_notice_api.h>
#include <shared/common_utils/app_utils/notice/i_notice_factory.h>

namespace common_utils::app_utils::notice {

class NoticeFactory final : public INoticeFactory
{
public:
    /// @throws zin::CheckFailedException  for a null api
    explicit NoticeFactory(std::shared_ptr<INoticeApi> api);

    /// @throws zin::CheckFailedException  when the system gives no notice
    std::unique_ptr<INotice> CreateNotice() override;

private:
    std::shared_ptr<INoticeApi> m_api;
};

}  // namespace common_utils::app_utils::notice
