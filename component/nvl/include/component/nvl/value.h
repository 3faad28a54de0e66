#pragma once

#include <cstddef>
#include <functional>
#include <map>
#include <string>
#include <type_traits>
#include <variant>
#include <vector>

#include <component/nvl/ban_int.h>
#include <component/plk/timestamp.h>

namespace nvl {

/// The sixteen kinds of value, in an order that is known outside of this process and stays. The
/// children of a list or map may be incomplete here.
/// @tparam Integer  wraps the integers of less than 64 bits and the single bytes
template <class Child, template <class> class Integer>
using ValueVariant = std::variant<nvl_sm::None,
                                  std::vector<Child>,
                                  std::map<std::string, Child, std::less<void>>,
                                  bool,
                                  Integer<signed char>,
                                  Integer<short>,
                                  Integer<int>,
                                  long,
                                  double,
                                  plk::types::Timestamp,
                                  std::string,
                                  std::vector<unsigned char>,
                                  Integer<unsigned char>,
                                  Integer<unsigned short>,
                                  Integer<unsigned int>,
                                  unsigned long>;

/// The kinds by name, for `std::get_if<kind::Map>` and the like.
namespace kind {

inline constexpr std::size_t None = 0;
inline constexpr std::size_t List = 1;
inline constexpr std::size_t Map = 2;
inline constexpr std::size_t Bool = 3;
inline constexpr std::size_t Int8 = 4;
inline constexpr std::size_t Int16 = 5;
inline constexpr std::size_t Int32 = 6;
inline constexpr std::size_t Int64 = 7;
inline constexpr std::size_t Double = 8;
inline constexpr std::size_t Timestamp = 9;
inline constexpr std::size_t String = 10;
inline constexpr std::size_t Blob = 11;
inline constexpr std::size_t UInt8 = 12;
inline constexpr std::size_t UInt16 = 13;
inline constexpr std::size_t UInt32 = 14;
inline constexpr std::size_t UInt64 = 15;
inline constexpr std::size_t Count = 16;

}  // namespace kind

template <class Tag>
struct TValue;

namespace aux::impl {

/// Marks the value whose children are values of its own type.
struct UValueTag
{};

template <class Tag>
struct ChildOf
{
    using Type = Tag;
};

template <>
struct ChildOf<UValueTag>
{
    using Type = TValue<UValueTag>;
};

}  // namespace aux::impl

/// A value alone, without what belongs to the node that holds it. Its children are of the type
/// `Tag`, or again values for the tag `aux::impl::UValueTag`. Small integers are wrapped, so a
/// plain number becomes a `long` or nothing.
/// @note Copying, comparing and destroying go as deep as the tree does.
template <class Tag>
struct TValue
{
    using Child = typename aux::impl::ChildOf<Tag>::Type;
    using Variant = ValueVariant<Child, nvl_sm::BanInt>;

    Variant value;

    friend bool operator==(const TValue& left, const TValue& right)
    {
        return left.value == right.value;
    }
};

static_assert(std::variant_size_v<TValue<aux::impl::UValueTag>::Variant> == kind::Count);

}  // namespace nvl
