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
    [[nodiscard]] virtual bool IsReadOnly() const = 0;

    /// Registers what is called after a change of the value, on a thread of the reader's choice.
    /// One callback a reader; the callback must not unregister itself.
    virtual void RegisterCallback(std::function<void()> callback) = 0;
    virtual void UnregisterCallback() = 0;
};

}  // namespace vdi::common_utils::settings
