#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include <QList>
#include <QObject>
#include <QString>

#include <shared/common_utils_ui/ui/taskbar/language_control/i_language_indicator_presenter.h>
#include <shared/common_utils_ui/ui/taskbar/language_control/i_language_indicator_view.h>
#include <shared/common_utils_ui/ui/taskbar/taskbar_view.h>

class QQmlContext;
class QStringListModel;

namespace common_utils_ui::taskbar::ui::controls::language_control {

/// The layout indicator, published as `layoutControl`, with the names on offer as `localeModel`.
/// Layouts go by short names here, which the translation of the taskbar gives. A click asks the
/// presenter only; the new layout shows once the presenter reports it. Invisible at first.
class LanguageIndicatorView final : public TaskbarView<LanguageIndicatorView,
                                                       ILanguageIndicatorView,
                                                       std::shared_ptr<ILanguageIndicatorPresenter>>
{
    Q_OBJECT
    Q_PROPERTY(QString keyboardLayout READ KeyboardLayout NOTIFY KeyboardLayoutChanged)
    Q_PROPERTY(bool isVisible READ IsVisible NOTIFY VisibleChanged)
    Q_PROPERTY(bool isEnabled READ IsEnabled NOTIFY EnabledChanged)

public:
    /// @param context  not owned
    /// @throws zin::CheckFailedException  a collaborator is null
    LanguageIndicatorView(std::shared_ptr<ILanguageIndicatorPresenter> presenter,
                          QQmlContext* context,
                          QObject* parent);
    ~LanguageIndicatorView() override;

    void OnLocaleChanged(std::string_view locale) override;
    void OnLocalesChanged(const std::vector<std::string>& locales) override;
    void OnShow() override;
    void OnHide() override;

    [[nodiscard]] QString KeyboardLayout() const;

    /// The user picked a layout.
    /// @param layout  its short name; one that is not on offer changes nothing
    Q_INVOKABLE void ChangeLayout(QString layout);

signals:
    void KeyboardLayoutChanged(QString layout);
    void TooltipChanged();
    void VisibleChanged(bool isVisible);
    void EnabledChanged(bool isEnabled);
    void MenuVisibleChanged();

private:
    QString m_keyboardLayout;
    QList<QString> m_layouts;
    std::unique_ptr<QStringListModel> m_model;
};

}  // namespace common_utils_ui::taskbar::ui::controls::language_control
