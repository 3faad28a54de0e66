#pragma once

#include <memory>
#include <string>

#include <QPointer>
#include <QQmlApplicationEngine>
#include <QString>

#include <component/settings_manager/i_settings_manager.h>
#include <shared/common_utils_ui/translate/translation_installer.h>
#include <shared/common_utils_ui/window/i_window.h>
#include <shared/common_utils_ui/window/window_resizer.h>
#include <shared/ui_kit/style/palette_factory.h>
#include <shared/ui_kit/style/palette_id_interactor.h>

#include "business/cert_approver_cert_data_interactor.h"
#include "business/cert_approver_verdict_interactor.h"

namespace cert_approver {

/// What the application needs beyond its entry: its names, its language, its logging, and the parts
/// from which the window is made. For the Qt thread; the two interactors are for any thread.
class OsApplication
{
public:
    /// Names the Qt application.
    /// @param engine  not owned
    /// @throws zin::CheckFailedException  a collaborator is missing
    OsApplication(QString&& appName,
                  std::shared_ptr<settings_manager::ISettingsManager> settingsManager,
                  std::shared_ptr<vdi::common_utils_ui::window::IWindowResizer> windowResizer,
                  QPointer<QQmlApplicationEngine> engine);

    /// Gives the root logger its tag and level, and Qt's messages and the platform's lines to it.
    static void SetupLogger();

    /// Installs the texts of the terminal's language. A failure is logged; the keys of the texts
    /// are shown then.
    void installTranslator();

    /// @returns the terminal's language, or "en_EN" where none can be read. That is no language
    ///          which the translations know, so the installer falls to its own default.
    [[nodiscard]] std::string Language() const;

    [[nodiscard]] std::unique_ptr<windows::components::IWindowFactory> Factory();

    [[nodiscard]] std::shared_ptr<vdi::uikit::utils::style::IPaletteFactory> GetPaletteFactory();
    [[nodiscard]] std::shared_ptr<vdi::uikit::utils::style::IPaletteIdInteractor>
    GetPaletteIdInteractor();

    [[nodiscard]] std::shared_ptr<interactors::CertApproverCertDataInteractor>
    GetCertDataInteractor() const;
    [[nodiscard]] std::shared_ptr<interactors::CertApproverVerdictInteractor> GetVerdictInteractor()
        const;

private:
    std::unique_ptr<vdi::common_utils_ui::translate::ITranslationInstaller> m_translationInstaller;
    std::shared_ptr<settings_manager::ISettingsManager> m_settingsManager;
    std::shared_ptr<interactors::CertApproverCertDataInteractor> m_certDataInteractor;
    std::shared_ptr<interactors::CertApproverVerdictInteractor> m_verdictInteractor;
    // Both stay empty: the application follows no palette setting.
    std::shared_ptr<vdi::uikit::utils::style::IPaletteIdInteractor> m_paletteIdInteractor;
    std::shared_ptr<vdi::uikit::utils::style::IPaletteFactory> m_paletteFactory;
    std::shared_ptr<vdi::common_utils_ui::window::IWindowResizer> m_windowResizer;
    QPointer<QQmlApplicationEngine> m_engine;
};

}  // namespace cert_approver
