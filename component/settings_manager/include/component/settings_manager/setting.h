#pragma once

#include <type_traits>

#include <component/nvl/value.h>

namespace settings_manager {

/// What a setting has besides its value. The service enforces it, the client hands it on.
struct Attributes
{
    bool isReadOnly = false;

    friend bool operator==(const Attributes& left, const Attributes& right) = default;
};

/// A node of the settings tree with all that is below it.
/// @note Copying, comparing and destroying go as deep as the tree does. What is read by
///       `Deserialize` is at most as deep as the square root of the bytes that it is read from.
struct Setting
{
    using Variant = nvl::ValueVariant<Setting, std::type_identity_t>;
    using List = std::variant_alternative_t<nvl::kind::List, Variant>;
    using Map = std::variant_alternative_t<nvl::kind::Map, Variant>;
    using Blob = std::variant_alternative_t<nvl::kind::Blob, Variant>;

    Variant value;
    Attributes attributes = {};

    friend bool operator==(const Setting& left, const Setting& right)
    {
        return left.value == right.value && left.attributes == right.attributes;
    }
};

/// The value as a setting that may be written to.
/// @throws std::bad_variant_access for a value that holds nothing at all
[[nodiscard]] Setting ToSetting(const nvl::TValue<Setting>& value);

/// The value of a setting without its attributes; those of its children stay.
/// @throws std::bad_variant_access for a setting that holds nothing at all
[[nodiscard]] nvl::TValue<Setting> ToValue(const Setting& setting);

}  // namespace settings_manager
