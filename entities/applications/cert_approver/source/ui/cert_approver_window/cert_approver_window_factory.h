#pragma once

#include <memory>

#include <QPointer>
#include <QQmlApplicationEngine>

#include <component/settings_manager/i_settings_manager.h>
#include <shared/common_utils_ui/window/i_window.h>
#include <shared/common_utils_ui/window/window_resizer.h>
#include <shared/ui_kit/style/palette_factory.h>
#include <shared/ui_kit/style/palette_id_interactor.h>

#include "business/i_cert_approver_cert_data_interactor.h"
#include "business/i_cert_approver_verdict_interactor.h"

namespace cert_approver::ui {

/// Puts the approval window together. For the Qt thread.
class CertApproverWindowFactory final : public windows::components::IWindowFactory
{
public:
    /// @throws zin::CheckFailedException  a collaborator is missing
    CertApproverWindowFactory(
        QPointer<QQmlApplicationEngine> engine,
        std::shared_ptr<interactors::ICertApproverCertDataGetter> certDataGetter,
        std::shared_ptr<interactors::ICertApproverVerdictSetter> verdictSetter,
        std::shared_ptr<settings_manager::ISettingsManager> settingsManager,
        std::shared_ptr<vdi::common_utils_ui::window::IWindowResizer> windowResizer,
        std::shared_ptr<vdi::uikit::utils::style::IPaletteIdInteractor> paletteIdInteractor,
        std::shared_ptr<vdi::uikit::utils::style::IPaletteFactory> paletteFactory);

    /// Also loads the window's document. Meant to be called once: each call makes a window of its
    /// own.
    [[nodiscard]] std::shared_ptr<windows::components::IWindow> CreateWindow() override;

private:
    void LoadDocument();

    QPointer<QQmlApplicationEngine> m_engine;
    std::shared_ptr<interactors::ICertApproverCertDataGetter> m_certDataGetter;
    std::shared_ptr<interactors::ICertApproverVerdictSetter> m_verdictSetter;
    std::shared_ptr<settings_manager::ISettingsManager> m_settingsManager;
    std::shared_ptr<vdi::common_utils_ui::window::IWindowResizer> m_windowResizer;
    std::shared_ptr<vdi::uikit::utils::style::IPaletteIdInteractor> m_paletteIdInteractor;
    std::shared_ptr<vdi::uikit::utils::style::IPaletteFactory> m_paletteFactory;
};

}  // namespace cert_approver::ui
