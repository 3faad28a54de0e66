#include <utility>

#include <component/settings_manager/setting.h>

namespace settings_manager {
namespace {

template <class T>
const T& Unwrap(const T& value)
{
    return value;
}

template <class T>
T Unwrap(const nvl_sm::BanInt<T>& value)
{
    return value.Get();
}

template <std::size_t I, class To, class From>
bool ConvertKind(const From& from, To& to)
{
    const auto* value = std::get_if<I>(&from);
    if (value != nullptr)
    {
        to.template emplace<I>(Unwrap(*value));
    }
    return value != nullptr;
}

template <class To, class From, std::size_t... I>
To Convert(const From& from, std::index_sequence<I...> /*kinds*/)
{
    To to;
    if (!(ConvertKind<I>(from, to) || ...))
    {
        throw std::bad_variant_access();
    }
    return to;
}

using Kinds = std::make_index_sequence<nvl::kind::Count>;

}  // namespace

Setting ToSetting(const nvl::TValue<Setting>& value)
{
    return Setting{Convert<Setting::Variant>(value.value, Kinds()), Attributes()};
}

nvl::TValue<Setting> ToValue(const Setting& setting)
{
    return {Convert<nvl::TValue<Setting>::Variant>(setting.value, Kinds())};
}

}  // namespace settings_manager
