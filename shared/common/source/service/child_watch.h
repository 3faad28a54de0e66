#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <utility>

#include <shared/common/tvo/service/i_service_loop.h>

#include "i_source.h"

namespace tvo::service {

/// A child on its way to its end.
class ChildWatch final : public ISource
{
public:
    /// @throws zin::Exception  when the program cannot be run
    /// @param over  called before `ended`, when there is nothing more to watch
    ChildWatch(const ChildProgram& program,
               std::function<void(const ChildEnd& end)> ended,
               std::function<void()> over);
    ~ChildWatch() override;
    ChildWatch(const ChildWatch&) = delete;
    ChildWatch& operator=(const ChildWatch&) = delete;

    std::uint32_t Handle() const
    {
        return m_handle;
    }

    std::uint32_t Pid() const
    {
        return m_pid;
    }

    /// Nobody wants to know any more how it ends.
    void Forget()
    {
        m_ended = nullptr;
    }

    /// Ends a child that cannot be watched.
    void KillAndAwait();

    void OnReady(Amount amount) override;

private:
    std::uint32_t m_pid = 0;
    const std::uint32_t m_handle;
    std::function<void(const ChildEnd& end)> m_ended;
    std::function<void()> m_over;
};

/// What the service holds of a child.
class Child final : public IChild
{
public:
    explicit Child(std::shared_ptr<ChildWatch> watch) : m_watch(std::move(watch)) {}
    ~Child() override;

    std::uint32_t Pid() const override;
    void Terminate() override;
    void Kill() override;
    void Abort() override;
    bool Serves(const std::string& server) const override;

private:
    const std::shared_ptr<ChildWatch> m_watch;
};

}  // namespace tvo::service
