#include "descriptor_limit.h"

#include <sys/resource.h>

#include <tvo/task.h>

namespace platform {
namespace {

bool g_raised = false;
rlimit g_former{};

}  // namespace

bool RaiseDescriptorLimit()
{
    if (::getrlimit(RLIMIT_NOFILE, &g_former) != 0 || g_former.rlim_cur == g_former.rlim_max)
    {
        return false;
    }
    const rlimit raised{g_former.rlim_max, g_former.rlim_max};
    g_raised = ::setrlimit(RLIMIT_NOFILE, &raised) == 0;
    return g_raised;
}

}  // namespace platform

void TvoTaskRestoreDescriptorLimit()
{
    if (platform::g_raised)
    {
        ::setrlimit(RLIMIT_NOFILE, &platform::g_former);
    }
}
