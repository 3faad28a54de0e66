#pragma once

#include <functional>
#include <memory>

#include <shared/ui_kit/style/palette_id.h>

namespace vdi::uikit::utils::style {

/// Holds which palette is wanted, and tells one listener about each setting of it.
class IPaletteIdInteractor
{
public:
    virtual ~IPaletteIdInteractor() = default;

    /// @throws zin::CheckFailedException  none was ever set
    [[nodiscard]] virtual PaletteId GetPaletteId() const = 0;

    /// Calls the listener on this thread, also when the identifier is the old one. With a palette
    /// provider listening this must be the UI thread.
    virtual void SetPaletteId(PaletteId id) = 0;

    /// The callback runs without a lock held, so it may unregister itself. Any thread.
    /// @throws zin::CheckFailedException  there is a callback already
    virtual void RegisterCallback(std::function<void()> callback) = 0;
    virtual void UnregisterCallback() = 0;
};

std::shared_ptr<IPaletteIdInteractor> CreatePaletteIdInteractor();

}  // namespace vdi::uikit::utils::style
