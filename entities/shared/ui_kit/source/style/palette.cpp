#include <shared/ui_kit/style/palette.h>

namespace vdi::uikit::utils::style {

QColor IPalette::PersistentAccentPrimary() const
{
    return {};
}

QColor IPalette::PersistentAccentSubPrimary() const
{
    return {};
}

QColor IPalette::PersistentAccentSecondary() const
{
    return {};
}

QColor IPalette::PersistentAccentDisabled() const
{
    return {};
}

QColor IPalette::PersistentAccentBorder() const
{
    return {};
}

QColor IPalette::PersistentAccentBackground() const
{
    return {};
}

}  // namespace vdi::uikit::utils::style
