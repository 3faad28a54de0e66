#pragma once

#include <memory>
#include <string>
#include <variant>

namespace windows::components {

/// A top-level window as code outside the UI sees it. The implementation says which threads may
/// call what.
class IWindow
{
public:
    virtual ~IWindow() = default;

    virtual void Show() = 0;
    [[nodiscard]] virtual bool IsVisible() const = 0;
    virtual void Hide() = 0;
    virtual void Close() = 0;

    /// @param width, height  device-independent pixels
    virtual void Resize(int width, int height) = 0;

    /// Tells apart windows that need it; 0 for all others.
    [[nodiscard]] virtual int GetId() const
    {
        return 0;
    }

    /// Hands a window what it is to show, where it shows more than one thing.
    virtual void SetParameter(std::variant<std::monostate, unsigned long, std::string> const&) {}
};

class IWindowFactory
{
public:
    virtual ~IWindowFactory() = default;

    /// @returns a hidden window, or an empty pointer after a failure, which is logged
    [[nodiscard]] virtual std::shared_ptr<IWindow> CreateWindow() = 0;
};

}  // namespace windows::components
