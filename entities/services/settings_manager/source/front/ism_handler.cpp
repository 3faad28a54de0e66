#include "ism_handler.h"

#include <utility>
#include <vector>

#include <component/settings_manager/tvo_ipc/limits.h>
#include <component/settings_manager/tvo_ipc/nodes.h>

#include "store/path_reader.h"

namespace settings_manager::service {
namespace {

using Clock = std::chrono::steady_clock;

using ReadRequest = vx_settings_manager_WzISM_Read_req;
using ReadResponse = vx_settings_manager_WzISM_Read_res;
using WriteRequest = vx_settings_manager_WzISM_Write_req;
using WriteResponse = vx_settings_manager_WzISM_Write_res;
using ReadNextRequest = vx_settings_manager_WzISM_ReadNext_req;
using ReadNextResponse = vx_settings_manager_WzISM_ReadNext_res;
using WriteNextRequest = vx_settings_manager_WzISM_WriteNext_req;
using WriteNextResponse = vx_settings_manager_WzISM_WriteNext_res;
using CancelRequest = vx_settings_manager_WzISM_Cancel_req;
using CancelResponse = vx_settings_manager_WzISM_Cancel_res;
using GetAttribRequest = vx_settings_manager_WzISM_GetAttrib_req;
using GetAttribResponse = vx_settings_manager_WzISM_GetAttrib_res;
using SetAttribRequest = vx_settings_manager_WzISM_SetAttrib_req;
using SetAttribResponse = vx_settings_manager_WzISM_SetAttrib_res;
using DeleteRequest = vx_settings_manager_WzISM_Delete_req;
using DeleteResponse = vx_settings_manager_WzISM_Delete_res;

WriteMode ToWriteMode(std::uint8_t mode)
{
    if (mode != vx_settings_manager_WzISM_mode_create &&
        mode != vx_settings_manager_WzISM_mode_set_value &&
        mode != vx_settings_manager_WzISM_mode_set_setting)
    {
        throw nvl::Error(plk::codes::InvalidArgument, "unknown mode of writing");
    }
    return static_cast<WriteMode>(mode);
}

void CheckReadMode(std::uint8_t mode)
{
    if (mode != vx_settings_manager_WzISM_mode_read)
    {
        throw nvl::Error(plk::codes::InvalidArgument, "unknown mode of reading");
    }
}

}  // namespace

IsmHandler::IsmHandler(Store& store, ContextTable& contexts) noexcept
    : m_store(store), m_contexts(contexts)
{}

Outcome IsmHandler::Serve(const ServiceCall& call)
{
    switch (call.request->mid)
    {
        case ReadRequest::Mid:
            return Call(*this, &IsmHandler::Read, call);
        case WriteRequest::Mid:
            return Call(*this, &IsmHandler::Write, call);
        case ReadNextRequest::Mid:
            return Call(*this, &IsmHandler::ReadNext, call);
        case WriteNextRequest::Mid:
            return Call(*this, &IsmHandler::WriteNext, call);
        case CancelRequest::Mid:
            return Call(*this, &IsmHandler::Cancel, call);
        case GetAttribRequest::Mid:
            return Call(*this, &IsmHandler::GetAttrib, call);
        case SetAttribRequest::Mid:
            return Call(*this, &IsmHandler::SetAttrib, call);
        case DeleteRequest::Mid:
            return Call(*this, &IsmHandler::Delete, call);
        default:
            return Outcome::Reject;
    }
}

Outcome IsmHandler::Read(const ServiceCall& call,
                         const ReadRequest& request,
                         ReadResponse& response)
{
    const auto text = TextIn(call, request.path, ipc::limits::Path);
    if (!text)
    {
        return Outcome::Reject;
    }
    const auto work = [&]
    {
        CheckReadMode(request.mode);
        const nvl::Path path = ReadPath(*text);
        SnapshotReader reader(m_store.At(path), TextOf(path));
        response.count = reader.Count();
        ReadTransfer transfer(std::move(reader));
        transfer.Pack(*call.responseArena, response.nodes);
        if (!transfer.IsComplete())
        {
            response.token =
                m_transfers.Add(call.caller.connection, Clock::now(), std::move(transfer));
        }
    };
    return Answer<ReadRequest>(call, response, work);
}

Outcome IsmHandler::ReadNext(const ServiceCall& call,
                             const ReadNextRequest& request,
                             ReadNextResponse& response)
{
    const auto work = [&]
    {
        auto transfer = m_transfers.Take<ReadTransfer>(request.token, call.caller.connection);
        transfer.Pack(*call.responseArena, response.nodes);
        response.last = transfer.IsComplete() ? 1 : 0;
        if (!transfer.IsComplete())
        {
            m_transfers.PutBack(
                request.token, call.caller.connection, Clock::now(), std::move(transfer));
        }
    };
    return Answer<ReadNextRequest>(call, response, work);
}

Outcome IsmHandler::Write(const ServiceCall& call,
                          const WriteRequest& request,
                          WriteResponse& response)
{
    const auto text = TextIn(call, request.path, ipc::limits::Path);
    std::vector<impl::RawItem> items;
    if (!text || !ipc::ReadNodes(*call.requestArena, request.nodes, items))
    {
        return Outcome::Reject;
    }
    const auto work = [&]
    {
        StagedWrite write(ToWriteMode(request.mode), ReadPath(*text), request.count);
        write.Add(std::move(items));
        if (write.IsComplete())
        {
            m_contexts.Tell(write.CommitTo(m_store));
        }
        else
        {
            response.token =
                m_transfers.Add(call.caller.connection, Clock::now(), std::move(write));
        }
    };
    return Answer<WriteRequest>(call, response, work);
}

/// Whatever goes wrong, nothing is left of the write: a part of a tree is of no use.
Outcome IsmHandler::WriteNext(const ServiceCall& call,
                              const WriteNextRequest& request,
                              WriteNextResponse& response)
{
    std::vector<impl::RawItem> items;
    const bool isReadable = ipc::ReadNodes(*call.requestArena, request.nodes, items);
    const auto work = [&]
    {
        auto write = m_transfers.Take<StagedWrite>(request.token, call.caller.connection);
        if (!isReadable)
        {
            return;
        }
        write.Add(std::move(items));
        if (write.IsComplete() != (request.last != 0))
        {
            throw nvl::Error(plk::codes::InvalidSize, "another number of nodes than announced");
        }
        if (write.IsComplete())
        {
            m_contexts.Tell(write.CommitTo(m_store));
        }
        else
        {
            m_transfers.PutBack(
                request.token, call.caller.connection, Clock::now(), std::move(write));
        }
    };
    const Outcome outcome = Answer<WriteNextRequest>(call, response, work);
    return isReadable ? outcome : Outcome::Reject;
}

Outcome IsmHandler::Cancel(const ServiceCall& call,
                           const CancelRequest& request,
                           CancelResponse& response)
{
    const auto work = [&]
    {
        m_transfers.Remove(request.token, call.caller.connection);
    };
    return Answer<CancelRequest>(call, response, work);
}

Outcome IsmHandler::GetAttrib(const ServiceCall& call,
                              const GetAttribRequest& request,
                              GetAttribResponse& response)
{
    const auto text = TextIn(call, request.path, ipc::limits::Path);
    const auto work = [&]
    {
        response.attrib = m_store.At(ReadPath(*text))->isReadOnly ? 1 : 0;
    };
    return text ? Answer<GetAttribRequest>(call, response, work) : Outcome::Reject;
}

Outcome IsmHandler::SetAttrib(const ServiceCall& call,
                              const SetAttribRequest& request,
                              SetAttribResponse& response)
{
    const auto text = TextIn(call, request.path, ipc::limits::Path);
    const auto work = [&]
    {
        m_contexts.Tell(m_store.SetReadOnly(ReadPath(*text), request.attrib != 0));
    };
    return text ? Answer<SetAttribRequest>(call, response, work) : Outcome::Reject;
}

Outcome IsmHandler::Delete(const ServiceCall& call,
                           const DeleteRequest& request,
                           DeleteResponse& response)
{
    const auto text = TextIn(call, request.path, ipc::limits::Path);
    const auto work = [&]
    {
        m_contexts.Tell(m_store.Delete(ReadPath(*text)));
    };
    return text ? Answer<DeleteRequest>(call, response, work) : Outcome::Reject;
}

}  // namespace settings_manager::service
