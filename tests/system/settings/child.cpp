#include "child.h"

#include <csignal>
#include <cstdio>
#include <exception>

#include <gtest/gtest.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <component/logger/tvo_logger.h>

namespace {

/// A service that is not there is nothing that anybody has to read about.
void RunAlone(const std::function<void()>& body)
{
    ::prctl(PR_SET_PDEATHSIG, SIGKILL);
    tvo::logger::TVOLogger::Setup("CHILD", tvo::logger::LogLevel::Off, nullptr);
    try
    {
        body();
    }
    catch (const std::exception& exception)
    {
        ADD_FAILURE() << exception.what();
    }
    std::fflush(nullptr);
    ::_exit(testing::Test::HasFailure() ? 1 : 0);
}

}  // namespace

Child::Child(const std::function<void()>& body)
{
    std::fflush(nullptr);
    m_id = ::fork();
    if (m_id == 0)
    {
        RunAlone(body);
    }
}

Child::~Child()
{
    if (m_id > 0)
    {
        ::kill(m_id, SIGKILL);
        ::waitpid(m_id, nullptr, 0);
    }
}

pid_t Child::Id() const
{
    return m_id;
}

bool Child::Succeeds()
{
    int status = -1;
    WaitUntil("a child ends", [&] { return ::waitpid(m_id, &status, WNOHANG) != 0; });
    m_id = -1;
    return status == 0;
}
