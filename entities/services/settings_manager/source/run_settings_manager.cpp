#include "run_settings_manager.h"

#include <csignal>
#include <cstdio>
#include <iterator>
#include <memory>

#include <sys/stat.h>

#include <component/logger/logger.h>
#include <component/plk/exceptions.h>
#include <component/plk/process_exception.h>
#include <component/settings_manager/tvo_ipc/service_names.h>
#include <shared/common/tvo/service/i_service_loop.h>
#include <shared/common/utils/bad_use.h>
#include <shared/common/utils/platform_log.h>
#include <tvo/task.h>

#include "front/settings_service.h"
#include "options.h"
#include "store/store.h"

namespace settings_manager::service {
namespace {

using tvo::logger::LogLevel;

constexpr int Failed = 1;
constexpr int WrongUse = 2;

constexpr TvoEndpointDescription Endpoint(std::uint16_t riid, const char* name)
{
    return {.index = riid, .name = name, .shortName = name, .interfaceName = name};
}

constexpr TvoEndpointDescription Endpoints[] = {
    Endpoint(service_names::IsmRiid, service_names::Ism),
    Endpoint(service_names::IsmRegRiid, service_names::IsmReg),
    Endpoint(service_names::IsmCbkRiid, service_names::IsmCbk),
};

void PublishEntity(const Options& options)
{
    const TvoComponentTree tree = {.entity = options.server.c_str(),
                                   .endpoints = Endpoints,
                                   .endpointCount = std::size(Endpoints),
                                   .components = nullptr,
                                   .componentCount = 0};
    const int code = TvoTaskSetComponentTree(TvoTaskGetSelf(), &tree);
    ZIN_CHECK_RESULT(code, "Can not set up the component tree: " << code);
}

std::unique_ptr<NodeTable> OpenTable(const Options& options)
{
    return options.database.empty() ? nullptr : std::make_unique<NodeTable>(options.database);
}

int Serve(const Options& options)
{
    Store store(OpenTable(options));
    PublishEntity(options);
    SettingsService service(tvo::service::CreateServiceLoop(), store);
    TVO_LOG_INFO("'{}' is ready, {}",
                 options.server,
                 options.database.empty() ? "nothing is kept" : options.database);
    const int code = service.Run();
    TVO_LOG_INFO("'{}' stopped with code {}", options.server, code);
    return code == 0 ? 0 : Failed;
}

int ServeOrLog(const Options& options)
{
    try
    {
        return Serve(options);
    }
    catch (const DatabaseError& error)
    {
        TVO_LOG_CRITICAL("{}", error.what());
        return Failed;
    }
    catch (...)
    {
        TVO_LOG_CRITICAL("{}", plk::utils::ProcessException().second);
        return Failed;
    }
}

}  // namespace

int RunSettingsManager(int argc, const char* const* argv)
{
    constexpr mode_t NobodyElse = 077;
    ::umask(NobodyElse);
    std::signal(SIGPIPE, SIG_IGN);  // whoever reads the log may go
    tvo::logger::TVOLogger::Setup("SETTINGS", LogLevel::Info, nullptr);
    ::common::utils::LogPlatformLines();
    try
    {
        const Options options = ParseOptions(argc, argv);
        if (!options.help.empty())
        {
            std::fputs(options.help.c_str(), stdout);
            return 0;
        }
        return ServeOrLog(options);
    }
    catch (const ::common::utils::BadUse& error)
    {
        std::fprintf(stderr, "settings_manager: %s\n", error.what());
        return WrongUse;
    }
}

}  // namespace settings_manager::service
