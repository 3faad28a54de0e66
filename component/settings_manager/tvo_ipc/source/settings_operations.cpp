// The operations of `SettingsManagerProxy` on settings.

#include <string>
#include <utility>
#include <vector>

#include <component/logger/formatters.h>
#include <component/logger/logger.h>
#include <component/nvl/error.h>
#include <component/settings_manager/path_to_str.h>
#include <component/settings_manager/raw_setting.h>
#include <component/settings_manager/tvo_ipc/wz_ism.h>

#include "call.h"
#include "chunked_read.h"
#include "chunked_write.h"
#include "mismatch.h"
#include "operation.h"
#include "path_arena.h"
#include "settings_manager_proxy.h"

namespace settings_manager::ipc {

namespace {

using tvo::logger::LogLevel;

/// The methods that bring a path and little else.
template <class Request>
int CallWithPath(const Channel& channel,
                 std::string_view path,
                 Request& request,
                 typename Request::Response& response,
                 trace::Tracer& tracer)
{
    PathArena arena;
    if (!arena.Store(path, request.path))
    {
        return ReportArena(fmt::format("{} request", Request::Name).c_str(), tracer);
    }
    const auto client = channel.As<vx_settings_manager_WzISM>();
    return Report(Call(client, request, arena.Get(), response, nullptr), tracer);
}

/// Makes a setting of the items, provided that they belong to the path.
int TakeSetting(const std::vector<impl::RawItem>& items,
                const nvl::Path& path,
                Setting& setting,
                trace::Tracer& tracer)
{
    nvl::Path foundPath;
    Setting found;
    const auto result = Deserialize(items, foundPath, found);
    if (result.first < 0)
    {
        Raise(tracer, LogLevel::Error);
        tracer.PutResults(" -> Deserialize = {}", result);
        return result.first;
    }
    if (foundPath != path)
    {
        Raise(tracer, LogLevel::Error);
        tracer.PutResults(" -> unequal deserialized path = {} ", foundPath);
        return Mismatch;
    }
    std::swap(setting, found);
    return plk::codes::Ok;
}

}  // namespace

int SettingsManagerProxy::CreateSetting(const nvl::Path& path, const Setting& setting)
{
    return WriteSetting(
        vx_settings_manager_WzISM_mode_create, path, setting, "CreateSetting", LogLevel::Debug);
}

int SettingsManagerProxy::SetSetting(const nvl::Path& path, const Setting& setting)
{
    return WriteSetting(
        vx_settings_manager_WzISM_mode_set_setting, path, setting, "SetSetting", LogLevel::Trace);
}

int SettingsManagerProxy::SetValue(const nvl::Path& path, const nvl::TValue<Setting>& value)
{
    Setting setting;
    try
    {
        setting = ToSetting(value);
    }
    catch (const std::exception&)
    {
        const auto error = nvl::ProcessException();
        TVO_LOG_ERROR("{} {}({}): {}", m_logPrefix, "SetValue", path, error);
        return error.first;
    }
    return WriteSetting(
        vx_settings_manager_WzISM_mode_set_value, path, setting, "SetValue", LogLevel::Trace);
}

int SettingsManagerProxy::WriteSetting(unsigned char mode,
                                       const nvl::Path& path,
                                       const Setting& setting,
                                       std::string_view opName,
                                       LogLevel level)
{
    const auto write = [&](trace::Tracer& tracer, const std::string& text)
    {
        std::vector<impl::RawItem> items;
        try
        {
            Serialize(path, setting, items);
        }
        catch (const std::exception&)
        {
            const auto error = nvl::ProcessException();
            Raise(tracer, LogLevel::Warning);
            tracer.PutResults("Serialize = {}", error);
            return error.first;
        }
        ChunkedWrite chunks(m_channel.As<vx_settings_manager_WzISM>(), tracer);
        return chunks.Run(mode, text, items);
    };
    return RunOperation(m_logPrefix, opName, level, path, write);
}

int SettingsManagerProxy::GetSetting(const nvl::Path& path, Setting& setting) const
{
    const auto read = [&](trace::Tracer& tracer, const std::string& text)
    {
        ChunkedRead chunks(m_channel.As<vx_settings_manager_WzISM>(), tracer);
        const int result = chunks.Run(text);
        return result < 0 ? result : TakeSetting(chunks.Items(), path, setting, tracer);
    };
    return RunOperation(m_logPrefix, "GetSetting", LogLevel::Debug, path, read);
}

int SettingsManagerProxy::GetAttribute(const nvl::Path& path, Attributes& attributes) const
{
    const auto get = [&](trace::Tracer& tracer, const std::string& text)
    {
        vx_settings_manager_WzISM_GetAttrib_req request{};
        vx_settings_manager_WzISM_GetAttrib_res response{};
        const int result = CallWithPath(m_channel, text, request, response, tracer);
        if (result >= 0)
        {
            attributes.isReadOnly = response.attrib != 0;
        }
        return result;
    };
    return RunOperation(m_logPrefix, "GetAttribute", LogLevel::Trace, path, get);
}

int SettingsManagerProxy::SetAttribute(const nvl::Path& path, const Attributes& attributes)
{
    const auto set = [&](trace::Tracer& tracer, const std::string& text)
    {
        vx_settings_manager_WzISM_SetAttrib_req request{};
        vx_settings_manager_WzISM_SetAttrib_res response{};
        request.attrib = attributes.isReadOnly ? 1 : 0;
        return CallWithPath(m_channel, text, request, response, tracer);
    };
    return RunOperation(m_logPrefix, "SetAttribute", LogLevel::Debug, path, set);
}

int SettingsManagerProxy::DeleteSetting(const nvl::Path& path)
{
    const auto remove = [&](trace::Tracer& tracer, const std::string& text)
    {
        vx_settings_manager_WzISM_Delete_req request{};
        vx_settings_manager_WzISM_Delete_res response{};
        return CallWithPath(m_channel, text, request, response, tracer);
    };
    return RunOperation(m_logPrefix, "DeleteSetting", LogLevel::Debug, path, remove);
}

}  // namespace settings_manager::ipc
