#include <stdexcept>
#include <string>

#include <shared/common/tvo/ipc/proxy/proxy.h>

namespace tvoipc_detail::api_v1 {

namespace {

void WriteHeader(wz_message& header, std::uint16_t riid, std::uint16_t mid, std::uint32_t sizeWord)
{
    header.iid = riid;
    header.mid = mid;
    header.size = sizeWord;
}

}  // namespace

void CallMethod(const WzTvoTransport& transport,
                std::uint16_t riid,
                std::uint16_t mid,
                const char* name,
                const Packet& request,
                const Packet& response,
                std::uint32_t handles)
{
    WriteHeader(*request.message, riid, mid, request.size);
    WriteHeader(
        *response.message, riid, mid, response.size | (handles << WzMessageHandleCountShift));
    // A transport record serves one thread at a time; a copy lets several call on one connection.
    WzTvoTransport mine = transport;
    const int result = mine.operations->call(
        &mine, request.message, request.arena, response.message, response.arena);
    if (result != 0)
    {
        throw std::runtime_error(std::string(name) + " transport error");
    }
    if ((response.message->size & WzMessageFailedBit) != 0)
    {
        throw std::runtime_error(std::string(name) + " server error");
    }
}

}  // namespace tvoipc_detail::api_v1
