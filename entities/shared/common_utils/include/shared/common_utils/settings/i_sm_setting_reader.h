#pragma once

#include <functional>

namespace vdi::common_utils::settings {

/// Reads one setting as a value of type T. The second parameter is there for specialisations by
/// groups of types; everyone else leaves it alone.
template <class T, class Enable = void>
class ISmSettingReader
{
public:
    virtual ~ISmSettingReader() = default;

    /// @returns the value of this moment, or the reader's default where there is nothing usable
    /// @note any thread
    [[nodiscard]] virtual T ReadValue() const = 0;

    /// Whether the setting is marked as read-only.
    /// @throws zin::CheckResultFailedException  the mark cannot be read
    /// @note any thread
    [[nodiscard]] virtual bool IsReadOnly() const = 0;

    /// Registers what is called after a change of the setting or of what is below it, on a thread
    /// of the reader's choice, perhaps before this returns. One callback a reader: a second one
    /// takes the place of the first. The callback must not register or unregister.
    /// @throws zin::CheckResultFailedException  changes are not to be had; a callback that was
    ///                                          registered before stays
    virtual void RegisterCallback(std::function<void()> callback) = 0;

    /// Waits for a running callback; afterwards it is not called any more.
    virtual void UnregisterCallback() = 0;
};

}  // namespace vdi::common_utils::settings
