#include "ui/cert_approver_window/cert_approver_window_factory.h"

#include <exception>
#include <stdexcept>
#include <string>
#include <utility>

#include <QUrl>

#include <component/logger/logger.h>
#include <component/plk/exceptions.h>
#include <shared/common_utils/settings/sm_setting_accessor.h>

#include "language_setting.h"
#include "ui/cert_approver_window/cert_approver_window_presenter.h"
#include "ui/cert_approver_window/cert_approver_window_view.h"
#include "ui/prompt_incubation_controller.h"

namespace cert_approver::ui {

namespace {

using vdi::common_utils::settings::SmSettingAccessor;
using vdi::common_utils::settings::SmSettingValueWriter;
using windows::components::IWindow;

constexpr char Document[] = "qrc:/qml/cert_approver/Window.qml";

}  // namespace

CertApproverWindowFactory::CertApproverWindowFactory(
    QPointer<QQmlApplicationEngine> engine,
    std::shared_ptr<interactors::ICertApproverCertDataGetter> certDataGetter,
    std::shared_ptr<interactors::ICertApproverVerdictSetter> verdictSetter,
    std::shared_ptr<settings_manager::ISettingsManager> settingsManager,
    std::shared_ptr<vdi::common_utils_ui::window::IWindowResizer> windowResizer,
    std::shared_ptr<vdi::uikit::utils::style::IPaletteIdInteractor> paletteIdInteractor,
    std::shared_ptr<vdi::uikit::utils::style::IPaletteFactory> paletteFactory)
    : m_engine(std::move(engine)),
      m_certDataGetter(std::move(certDataGetter)),
      m_verdictSetter(std::move(verdictSetter)),
      m_settingsManager(std::move(settingsManager)),
      m_windowResizer(std::move(windowResizer)),
      m_paletteIdInteractor(std::move(paletteIdInteractor)),
      m_paletteFactory(std::move(paletteFactory))
{
    ZIN_CHECK(!m_engine.isNull(), "QQmlEngine is null");
    ZIN_CHECK(m_certDataGetter != nullptr, "CertApproverCertDataGetter is null");
    ZIN_CHECK(m_verdictSetter != nullptr, "CertApproverVerdictSetter is null");
    ZIN_CHECK(m_settingsManager != nullptr, "SettingsManager is null");
    ZIN_CHECK(m_windowResizer != nullptr, "WindowResizer is null");
    ZIN_CHECK(m_paletteIdInteractor != nullptr, "PaletteIdInteractor is null");
    ZIN_CHECK(m_paletteFactory != nullptr, "PaletteFactory is null");
}

std::shared_ptr<IWindow> CertApproverWindowFactory::CreateWindow()
{
    try
    {
        // Without a language, dates are written as in no language's own way.
        auto language = std::make_unique<SmSettingAccessor<std::string, SmSettingValueWriter>>(
            m_settingsManager, LanguagePath, "");
        auto presenter = std::make_unique<CertApproverWindowPresenter>(
            m_certDataGetter, m_verdictSetter, std::move(language));
        auto view = std::make_shared<CertApproverWindowView>(m_engine->rootContext(),
                                                             std::move(presenter),
                                                             m_paletteIdInteractor,
                                                             m_paletteFactory,
                                                             nullptr);
        m_windowResizer->RegisterWindow(
            view,
            [](const std::shared_ptr<IWindow>& window, int width, int height)
            { window->Resize(width, height); });
        const auto screen = m_windowResizer->GetPrimaryScreenGeometry();
        view->Resize(screen.width(), screen.height());
        LoadDocument();
        return view;
    }
    catch (const std::exception& exception)
    {
        TVO_LOG_ERROR("Creation failed, with {} error!", exception.what());
        return nullptr;
    }
}

void CertApproverWindowFactory::LoadDocument()
{
    // A window brings a controller of its own where the engine has none.
    if (m_engine->incubationController() == nullptr)
    {
        m_engine->setIncubationController(new PromptIncubationController(m_engine.data()));
    }
    const auto loadedBefore = m_engine->rootObjects().size();
    m_engine->load(QUrl(QString::fromLatin1(Document)));
    // Qt has logged the reason. Without the document, calls would wait for a dialog that never
    // comes.
    if (m_engine->rootObjects().size() == loadedBefore)
    {
        throw std::runtime_error(std::string(Document) + " is not loaded");
    }
}

}  // namespace cert_approver::ui
