#pragma once

#include <array>
#include <string_view>
#include <utility>

#include <QList>
#include <QString>

/// Short names of keyboard layouts ("EN") for the codes of their locales ("en-US"). The names come
/// from the translation context "language_control" and stay in the language that was installed when
/// they were first asked for. To be used on the UI thread.
namespace common_utils_ui::taskbar::ui::controls::language_control {

/// All known locales with their short names.
const std::array<std::pair<std::string_view, QString>, 4>& GetLanguageToLayoutAbbrevMapping();

/// The short names in the same order.
const QList<QString>& GetLayoutAbbrevs();

/// @returns the short name for a code; for an unknown one that of "ru-RU", with a line in the log
QString GetLayoutAbbrev(std::string_view locale);

}  // namespace common_utils_ui::taskbar::ui::controls::language_control
