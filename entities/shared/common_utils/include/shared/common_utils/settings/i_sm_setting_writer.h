#pragma once

namespace vdi::common_utils::settings {

/// Writes one setting as a value of type T. The second parameter is there for specialisations by
/// groups of types.
template <class T, class Enable = void>
class ISmSettingWriter
{
public:
    virtual ~ISmSettingWriter() = default;

    /// Writes the value of a setting that exists, durably.
    /// @returns 0, or the negative result code, which is logged
    /// @note any thread
    virtual int WriteValue(const T& value) = 0;
};

}  // namespace vdi::common_utils::settings
