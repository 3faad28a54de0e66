#pragma once

#include <memory>

#include <shared/common_utils/app_utils/notice/i_notice.h>

namespace common_utils::app_utils::notice {

class INoticeFactory
{
public:
    virtual ~INoticeFactory() = default;

    virtual std::unique_ptr<INotice> CreateNotice() = 0;
};

}  // namespace common_utils::app_utils::notice
