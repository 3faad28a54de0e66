#pragma once

#include <memory>

#include "notice_set.h"

/// What the callers of the notice's operations hold.
struct SNotice
{
    std::shared_ptr<platform::NoticeSet> set;
};
