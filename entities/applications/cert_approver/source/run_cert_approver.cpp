#include "run_cert_approver.h"

#include <clocale>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include <QGuiApplication>
#include <QQmlApplicationEngine>

#include <component/cert_approver/tvo_ipc/cert_approver_dispatcher.h>
#include <component/cert_approver/tvo_ipc/cert_approver_stub.h>
#include <component/cert_approver/tvo_ipc/service_names.h>
#include <component/logger/logger.h>
#include <component/plk/exceptions.h>
#include <component/plk/process_exception.h>
#include <component/plk/result_code_text.h>
#include <shared/common_utils/app_utils/get_app_name.h>
#include <shared/common_utils_ui/window/window_resizer.h>

#include "business/cert_approver_request_handler.h"
#include "cert_approver_app.h"
#include "create_ipc_connection_manager.h"
#include "dispatcher_stop_guard.h"
#include "publish_entity.h"
#include "register_qml.h"
#include "service_registration.h"

namespace cert_approver {

namespace {

using windows::components::IWindow;

using Dispatcher = stub::CertApproverDispatcher;

constexpr char DefaultAppName[] = "CertApprover";
constexpr char QtAppName[] = "cert_approver";
constexpr char Utf8Locale[] = "C.UTF-8";
constexpr std::uint32_t ReceiveTimeoutMs = 500;
constexpr int FailureStatus = 1;

/// Text goes through the C library's conversions, which end at the first byte above ASCII in the
/// locale "C". Qt takes the locale of the environment, whatever it is.
void UseUtf8()
{
    if (std::setlocale(LC_CTYPE, Utf8Locale) == nullptr)
    {
        TVO_LOG_WARNING("Locale {} is not available", Utf8Locale);
    }
}

std::shared_ptr<IWindow> MakeWindow(OsApplication& application)
{
    const auto factory = application.Factory();
    TVO_LOG_TRACE("[main] cert_approver::OsApplication created window factory");
    auto window = factory->CreateWindow();
    TVO_LOG_TRACE("[main] cert_approver::ui::WindowFactory is created window");
    return window;
}

/// Opens the service and runs the event loop. Calls may arrive from the middle on: they are queued
/// to the loop, which shows them once it runs.
int Serve(const OsApplication& application, std::shared_ptr<IWindow> window)
{
    PublishEntity();
    const auto handler = std::make_shared<CertApproverRequestHandler>(
        application.GetCertDataInteractor(), application.GetVerdictInteractor(), std::move(window));
    const auto component = stub::CreateCertApproverComponent(handler);
    const ServiceRegistration registration(service_names::ConnectionId);
    Dispatcher dispatcher(
        service_names::Riid, registration.Handle(), ReceiveTimeoutMs, component->GetComponent());
    const DispatcherStopGuard stopGuard(dispatcher, application.GetVerdictInteractor());
    const auto connectionManager = CreateIpcConnectionManager(service_names::PublishedInterface,
                                                              service_names::ConnectionId,
                                                              service_names::Riid,
                                                              registration.Handle());
    dispatcher.Start();
    connectionManager->Start();
    TVO_LOG_TRACE("[main] Show CertApprover window");
    TVO_LOG_INFO("[main] CertApprover is ready");
    const int status = QGuiApplication::exec();
    TVO_LOG_INFO("[main] CertApprover stopped with code {}", status);
    return status;
}

int Run(int& argc, char** argv, SettingsManagerCreator createSettingsManager)
{
    std::vector<const char*> arguments(argv, argv + argc);
    [[maybe_unused]] const auto appName =
        ::common_utils::app_utils::GetAppNameOrDefault(argc, arguments.data(), DefaultAppName);
    OsApplication::SetupLogger();
    TVO_LOG_INFO("[main] CertApprover is starting...");

    const QGuiApplication qtApplication(argc, argv);
    UseUtf8();
    TVO_LOG_TRACE("[main] QGuiApplication is created");
    RegisterQml();

    const auto windowResizer = vdi::common_utils_ui::window::CreateWindowResizer();
    QQmlApplicationEngine engine;
    std::shared_ptr<settings_manager::ISettingsManager> settingsManager;
    ZIN_CHECK_RESULT(createSettingsManager(settingsManager),
                     "Failed to create persistent settings manager");
    OsApplication application(QString::fromLatin1(QtAppName),
                              std::move(settingsManager),
                              windowResizer,
                              QPointer<QQmlApplicationEngine>(&engine));
    TVO_LOG_TRACE("[main] cert_approver::OsApplication is created");
    application.installTranslator();
    TVO_LOG_TRACE("[main] cert_approver::OsApplication translation installed");

    return Serve(application, MakeWindow(application));
}

}  // namespace

int RunCertApprover(int argc, char** argv, SettingsManagerCreator createSettingsManager)
{
    UseUtf8();
    try
    {
        return Run(argc, argv, createSettingsManager);
    }
    catch (...)
    {
        const auto [code, message] = plk::utils::ProcessException();
        TVO_LOG_CRITICAL("[main] CertApprover start with error: {} with result: {}",
                         plk::zinx::ResultCodeText(code),
                         message);
        return FailureStatus;
    }
}

}  // namespace cert_approver
