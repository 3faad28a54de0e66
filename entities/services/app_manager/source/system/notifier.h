#pragma once

#include <chrono>
#include <optional>
#include <string>

namespace app_manager::service {

/// What the terminal tells the one who has started the manager.
class INotifier
{
public:
    virtual ~INotifier() = default;

    virtual void Ready() = 0;
    virtual void Reloading() = 0;
    virtual void Stopping() = 0;
    virtual void Status(const std::string& line) = 0;
    virtual void Alive() = 0;

    /// @returns how often `Alive` is expected, or nothing
    [[nodiscard]] virtual std::optional<std::chrono::milliseconds> AliveInterval() const = 0;
};

/// Speaks systemd's notify protocol; says nothing to nobody when there is no systemd above.
class Notifier final : public INotifier
{
public:
    void Ready() override;
    void Reloading() override;
    void Stopping() override;
    void Status(const std::string& line) override;
    void Alive() override;
    [[nodiscard]] std::optional<std::chrono::milliseconds> AliveInterval() const override;
};

}  // namespace app_manager::service
