#include <utility>

#include <shared/common/tvo/ipc/proxy/endpoint_handle.h>

namespace tvoipc_detail::api_v1 {

EndpointHandle::EndpointHandle(std::uint32_t handle, Ownership ownership, std::uint16_t riid)
    : m_handle(handle), m_ownership(ownership), m_riid(riid)
{}

EndpointHandle::EndpointHandle(EndpointHandle&& other) noexcept
    : m_handle(std::exchange(other.m_handle, XoInvalidHandle)),
      m_ownership(std::exchange(other.m_ownership, Ownership::Borrowed)),
      m_riid(std::exchange(other.m_riid, InvalidRiid))
{}

EndpointHandle& EndpointHandle::operator=(EndpointHandle&& other) noexcept
{
    if (this != &other)
    {
        Close();
        m_handle = std::exchange(other.m_handle, XoInvalidHandle);
        m_ownership = std::exchange(other.m_ownership, Ownership::Borrowed);
        m_riid = std::exchange(other.m_riid, InvalidRiid);
    }
    return *this;
}

EndpointHandle::~EndpointHandle()
{
    Close();
}

void EndpointHandle::Close() noexcept
{
    if (m_ownership == Ownership::Owned && m_handle != XoInvalidHandle)
    {
        XoHandleClose(m_handle);
    }
}

}  // namespace tvoipc_detail::api_v1
