#include "cert_approver_app.h"

#include <utility>

#include <QCoreApplication>

#include <component/logger/logger.h>
#include <component/plk/exceptions.h>
#include <shared/common/utils/platform_log.h>
#include <shared/common_utils/settings/read_setting_value.h>
#include <shared/common_utils_ui/log/qt_logger_support.h>

#include "config/logger.h"
#include "language_setting.h"
#include "ui/cert_approver_window/cert_approver_window_factory.h"

namespace cert_approver {

namespace {

constexpr char LoggerTag[] = "CRT_APPR";
constexpr char DefaultLanguage[] = "en_EN";

void SetAppName(const QString& appName)
{
    QCoreApplication::setOrganizationName(QStringLiteral("Vantelore"));
    QCoreApplication::setOrganizationDomain(QStringLiteral("vantelore.example"));
    QCoreApplication::setApplicationName(appName);
}

}  // namespace

OsApplication::OsApplication(
    QString&& appName,
    std::shared_ptr<settings_manager::ISettingsManager> settingsManager,
    std::shared_ptr<vdi::common_utils_ui::window::IWindowResizer> windowResizer,
    QPointer<QQmlApplicationEngine> engine)
    : m_translationInstaller(vdi::common_utils_ui::translate::CreateTranslationInstaller()),
      m_settingsManager(std::move(settingsManager)),
      m_certDataInteractor(std::make_shared<interactors::CertApproverCertDataInteractor>()),
      m_verdictInteractor(std::make_shared<interactors::CertApproverVerdictInteractor>()),
      m_windowResizer(std::move(windowResizer)),
      m_engine(std::move(engine))
{
    SetAppName(appName);
    ZIN_CHECK(m_settingsManager != nullptr, "PersistentSettingsManager is null");
    ZIN_CHECK(m_translationInstaller != nullptr, "TranslationInstaller is null");
    ZIN_CHECK(m_windowResizer != nullptr, "WindowResizer is null");
    ZIN_CHECK(!m_engine.isNull(), "QQmlApplicationEngine is null");
}

void OsApplication::SetupLogger()
{
    tvo::logger::TVOLogger::Setup(LoggerTag, config::logger::impl::logLevel, nullptr);
    qInstallMessageHandler(&QtLoggerSupport::MessageHandler);
    ::common::utils::LogPlatformLines();
}

void OsApplication::installTranslator()
{
    const auto resource = QCoreApplication::applicationName().toStdString();
    if (m_translationInstaller->Install(resource, Language()) < 0)
    {
        TVO_LOG_ERROR("Failed translator installation!");
    }
}

std::string OsApplication::Language() const
{
    return vdi::common_utils::settings::ReadSettingValue<std::string>(
        m_settingsManager, LanguagePath, DefaultLanguage);
}

std::unique_ptr<windows::components::IWindowFactory> OsApplication::Factory()
{
    auto paletteFactory = GetPaletteFactory();
    auto paletteIdInteractor = GetPaletteIdInteractor();
    return std::make_unique<ui::CertApproverWindowFactory>(m_engine,
                                                           m_certDataInteractor,
                                                           m_verdictInteractor,
                                                           m_settingsManager,
                                                           m_windowResizer,
                                                           std::move(paletteIdInteractor),
                                                           std::move(paletteFactory));
}

std::shared_ptr<vdi::uikit::utils::style::IPaletteFactory> OsApplication::GetPaletteFactory()
{
    return m_paletteFactory != nullptr ? m_paletteFactory
                                       : vdi::uikit::utils::style::CreatePaletteFactory();
}

std::shared_ptr<vdi::uikit::utils::style::IPaletteIdInteractor>
OsApplication::GetPaletteIdInteractor()
{
    if (m_paletteIdInteractor != nullptr)
    {
        return m_paletteIdInteractor;
    }
    auto interactor = vdi::uikit::utils::style::CreatePaletteIdInteractor();
    interactor->SetPaletteId(vdi::uikit::utils::style::PaletteId::Dark);
    return interactor;
}

std::shared_ptr<interactors::CertApproverCertDataInteractor> OsApplication::GetCertDataInteractor()
    const
{
    return m_certDataInteractor;
}

std::shared_ptr<interactors::CertApproverVerdictInteractor> OsApplication::GetVerdictInteractor()
    const
{
    return m_verdictInteractor;
}

}  // namespace cert_approver
