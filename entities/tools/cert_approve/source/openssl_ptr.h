#pragma once

#include <memory>
#include <string>

#include <openssl/bio.h>
#include <openssl/err.h>

namespace cert_approve {

template <auto Free>
struct OpenSslFree
{
    template <class T>
    void operator()(T* object) const noexcept
    {
        Free(object);
    }
};

using BioPtr = std::unique_ptr<BIO, OpenSslFree<BIO_free>>;

/// The reason of OpenSSL's last failure on this thread.
inline std::string OpenSslReason()
{
    const char* const reason = ERR_reason_error_string(ERR_peek_last_error());
    return reason != nullptr ? reason : "unknown reason";
}

/// The bytes that were written into a memory BIO.
inline std::string Content(BIO& bio)
{
    char* data = nullptr;
    const long size = BIO_get_mem_data(&bio, &data);
    return size > 0 ? std::string(data, static_cast<std::size_t>(size)) : std::string();
}

}  // namespace cert_approve
