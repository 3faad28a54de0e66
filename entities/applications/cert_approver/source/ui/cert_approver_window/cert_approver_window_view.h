#pragma once

#include <memory>
#include <string_view>

#include <QLocale>
#include <QObject>

#include <shared/common_utils_ui/window/i_window.h>
#include <shared/ui_kit/style/palette_factory.h>
#include <shared/ui_kit/style/palette_id_interactor.h>
#include <shared/ui_kit/style/palette_provider.h>

#include "ui/cert_approver_window/i_cert_approver_window_presenter.h"
#include "ui/cert_approver_window/i_cert_approver_window_view.h"

class QQmlContext;

namespace cert_approver::ui {

/// The window as QML and the rest of the system see it. Publishes what the dialog shows as context
/// properties and forwards the user's two actions to the presenter; decides nothing.
/// Made and destroyed on the Qt thread. `Show` and `GetGuardView` may be called on any thread, the
/// rest on the Qt thread.
class CertApproverWindowView final : public QObject,
                                     public ICertApproverWindowView,
                                     public windows::components::IWindow
{
    Q_OBJECT
    Q_PROPERTY(bool isVisible READ IsVisible NOTIFY VisibleChanged)

public:
    /// @param context  not owned; outlives the window's use
    /// @throws zin::CheckFailedException  a collaborator is null
    CertApproverWindowView(
        QQmlContext* context,
        std::unique_ptr<ICertApproverWindowPresenter> presenter,
        std::shared_ptr<vdi::uikit::utils::style::IPaletteIdInteractor> paletteIdInteractor,
        std::shared_ptr<vdi::uikit::utils::style::IPaletteFactory> paletteFactory,
        QObject* parent);
    ~CertApproverWindowView() override;

    /// Shows a hidden window and has the presenter fill it. Off the Qt thread the whole of it is
    /// queued, behind whatever the last answer still has to do there.
    void Show() noexcept override;
    [[nodiscard]] bool IsVisible() const noexcept override;
    void Hide() noexcept override;

    /// @param language  a locale name in UTF-8
    void SetSystemLanguage(std::string_view language) noexcept override;
    void Resize(int width, int height) noexcept override;
    void SetCertificateData(const CertViewData& data) noexcept override;
    [[nodiscard]] std::unique_ptr<::common::utils::ICallableGuard> GetGuardView() const override;

signals:
    void VisibleChanged(QPrivateSignal);

public slots:
    /// The user refuses. Hiding the window is up to the presenter.
    void Close() noexcept override;

    /// The user agrees.
    void Approve() noexcept;

private:
    void ShowHere() noexcept;
    void SetInitialValues();
    [[nodiscard]] QString ValidityText(std::int64_t microseconds) const;

    QQmlContext* m_context;
    std::unique_ptr<ICertApproverWindowPresenter> m_presenter;
    std::shared_ptr<vdi::uikit::utils::style::PaletteProvider> m_paletteProvider;
    QLocale m_locale;
    bool m_visible = false;
};

}  // namespace cert_approver::ui
