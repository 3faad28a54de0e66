#include "run_cert_approver.h"

#include <clocale>
#include <memory>
#include <string>
#include <utility>

#include <QGuiApplication>
#include <QQmlApplicationEngine>
#include <fmt/format.h>

#include <component/app_manager/create_application_status.h>
#include <component/cert_approver/tvo_ipc/cert_approver_dispatcher.h>
#include <component/cert_approver/tvo_ipc/service_names.h>
#include <component/logger/logger.h>
#include <component/plk/exceptions.h>
#include <component/plk/process_exception.h>
#include <component/plk/result_code_text.h>
#include <shared/common_utils/app_utils/get_app_name.h>
#include <shared/common_utils_ui/app_commands_handler/app_commands_window_handler.h>
#include <shared/common_utils_ui/app_shutdown/qt_app_shutdown.h>
#include <shared/common_utils_ui/qt_ui_task_executor.h>
#include <shared/common_utils_ui/watchdog/application_watchdog.h>
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

using app_manager::IApplicationManager;
using app_manager::IApplicationStatus;
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

/// Runs the event loop, and carries out the manager's commands meanwhile.
int FollowCommands(std::string_view appName,
                   IApplicationManager& manager,
                   std::shared_ptr<IWindow> window,
                   IApplicationStatus& status)
{
    using namespace vdi::common_utils_ui;

    const auto commands = manager.GetApplicationCommands();
    const auto executor = std::make_shared<::common::utils::QtUiTaskExecutor>();
    const auto shutdown = std::make_shared<app_shutdown::QtAppShutdown>(executor);
    app_commands_handler::AppCommandsWindowHandler commandHandler(
        appName,
        commands,
        std::dynamic_pointer_cast<app_manager::ICommandChangedSubscriber>(commands),
        std::move(window),
        executor,
        shutdown);

    TVO_LOG_INFO("[main] CertApprover is ready");
    status.ReadyToShowUI();
    commandHandler.StartProcessing();
    const int result = QGuiApplication::exec();

    TVO_LOG_INFO("[main] CertApprover stopped with code {}", result);
    status.ReadyToShutdown();
    return result;
}

/// Opens the service. Calls may arrive from the start of the dispatcher on: they are queued to the
/// event loop, which shows them once it runs.
int Serve(std::string_view appName,
          IApplicationManager& manager,
          const OsApplication& application,
          const std::shared_ptr<IWindow>& window,
          const Creators& creators,
          IApplicationStatus& status)
{
    PublishEntity();
    const auto handler = std::make_shared<CertApproverRequestHandler>(
        application.GetCertDataInteractor(), application.GetVerdictInteractor(), window);
    const auto component = creators.createComponent(handler);
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
    return FollowCommands(appName, manager, window, status);
}

/// Makes the application and its hidden window.
int RunApplication(std::string_view appName,
                   IApplicationManager& manager,
                   const Creators& creators,
                   IApplicationStatus& status)
{
    RegisterQml();
    const auto windowResizer = vdi::common_utils_ui::window::CreateWindowResizer();
    QQmlApplicationEngine engine;
    std::shared_ptr<settings_manager::ISettingsManager> settingsManager;
    ZIN_CHECK_RESULT(creators.createSettingsManager(settingsManager),
                     "Failed to create persistent settings manager");
    OsApplication application(QString::fromLatin1(QtAppName),
                              std::move(settingsManager),
                              windowResizer,
                              QPointer<QQmlApplicationEngine>(&engine));
    TVO_LOG_TRACE("[main] cert_approver::OsApplication is created");
    application.installTranslator();
    TVO_LOG_TRACE("[main] cert_approver::OsApplication translation installed");

    const auto windowFactory = application.Factory();
    TVO_LOG_TRACE("[main] cert_approver::OsApplication created window factory");
    const auto window = windowFactory->CreateWindow();
    TVO_LOG_TRACE("[main] cert_approver::ui::WindowFactory is created window");
    return Serve(appName, manager, application, window, creators, status);
}

/// @param status  receives the manager's ear as soon as there is one
int Run(int& argc,
        char** argv,
        std::string_view appName,
        const Creators& creators,
        std::shared_ptr<IApplicationStatus>& status)
{
    const auto manager = creators.createApplicationManager(appName);
    ZIN_CHECK(manager != nullptr, "App manager in null");
    status = app_manager::CreateApplicationStatusSPtr(appName, manager->GetApplicationController());
    ZIN_CHECK(status != nullptr, "App status is nullptr");
    status->ReadyToInitialize();

    OsApplication::SetupLogger();
    TVO_LOG_INFO("[main] CertApprover is starting...");
    const QGuiApplication qtApplication(argc, argv);
    UseUtf8();
    TVO_LOG_TRACE("[main] QGuiApplication is created");
    const auto watchdog = vdi::common_utils_ui::watchdog::CreateWatchdog(manager, appName);
    return RunApplication(appName, *manager, creators, *status);
}

/// To be called in a handler.
/// @param status  null as long as there is none
void ReportFailure(std::string_view appName, IApplicationStatus* status)
{
    const auto [code, message] = plk::utils::ProcessException();
    const auto error = plk::zinx::ResultCodeText(code);
    TVO_LOG_CRITICAL("[main] CertApprover start with error: {} with result: {}", error, message);
    if (status == nullptr)
    {
        return;
    }
    const auto summary = fmt::format("Failed to start {}", appName);
    const auto description = fmt::format("Failed to start {}: {}", appName, error);
    status->FinishWithInternalError(summary, description);
    TVO_LOG_ERROR("App {} crashed with error: {} - {}", appName, summary, description);
}

}  // namespace

int RunCertApprover(int argc, char** argv, const Creators& creators)
{
    UseUtf8();
    const char* firstArgument = argv[0];
    const auto appName =
        ::common_utils::app_utils::GetAppNameOrDefault(argc, &firstArgument, DefaultAppName);
    // Outlives all that can fail, so that the manager is told of it.
    std::shared_ptr<IApplicationStatus> status;
    try
    {
        return Run(argc, argv, appName, creators, status);
    }
    catch (...)
    {
        ReportFailure(appName, status.get());
        return FailureStatus;
    }
}

}  // namespace cert_approver
