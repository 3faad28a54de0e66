#include "tls_leaf.h"

#include <memory>

#include <fmt/format.h>
#include <openssl/ssl.h>
#include <poll.h>

#include <tools/cert_approve/failure.h>

#include "connect.h"
#include "input.h"
#include "openssl_ptr.h"

namespace cert_approve {
namespace {

using ContextPtr = std::unique_ptr<SSL_CTX, OpenSslFree<SSL_CTX_free>>;
using SslPtr = std::unique_ptr<SSL, OpenSslFree<SSL_free>>;

[[noreturn]] void Fail(const Endpoint& endpoint, const std::string& reason)
{
    throw Failure(ExitStatus::ServerUnreachable,
                  fmt::format("no TLS with {}, port {}: {}", endpoint.host, endpoint.port, reason));
}

/// Nothing secret passes over this connection and nothing is trusted because of it, so servers with
/// old versions and weak keys may show their certificates too.
ContextPtr MakeContext()
{
    ContextPtr context(SSL_CTX_new(TLS_client_method()));
    if (!context)
    {
        throw Failure(ExitStatus::ServerUnreachable, "cannot set up TLS: " + OpenSslReason());
    }
    SSL_CTX_set_verify(context.get(), SSL_VERIFY_NONE, nullptr);
    SSL_CTX_set_security_level(context.get(), 0);
    SSL_CTX_set_min_proto_version(context.get(), TLS1_VERSION);
    SSL_CTX_set_max_cert_list(context.get(), static_cast<long>(MaxInputBytes));
    return context;
}

std::string FailureReason(int error)
{
    if (error == SSL_ERROR_SSL)
    {
        return OpenSslReason();
    }
    return "the server closed the connection";
}

void Shake(SSL* ssl, int socket, const Endpoint& endpoint, const Deadline& deadline)
{
    for (;;)
    {
        ERR_clear_error();
        const int result = SSL_connect(ssl);
        if (result == 1)
        {
            return;
        }
        const int error = SSL_get_error(ssl, result);
        if (error != SSL_ERROR_WANT_READ && error != SSL_ERROR_WANT_WRITE)
        {
            Fail(endpoint, FailureReason(error));
        }
        if (!WaitFor(socket, error == SSL_ERROR_WANT_READ ? POLLIN : POLLOUT, deadline))
        {
            Fail(endpoint, "the server does not answer in time");
        }
    }
}

}  // namespace

Certificate FetchLeaf(const Endpoint& endpoint,
                      const std::string& serverName,
                      std::chrono::milliseconds limit)
{
    const Deadline deadline(limit);
    const ContextPtr context = MakeContext();
    const SslPtr ssl(SSL_new(context.get()));
    if (!ssl)
    {
        Fail(endpoint, OpenSslReason());
    }
    if (!serverName.empty() && SSL_set_tlsext_host_name(ssl.get(), serverName.c_str()) != 1)
    {
        throw Failure(ExitStatus::BadInput,
                      fmt::format("'{}' cannot be asked for as a server name", serverName));
    }
    const Descriptor socket = Connect(endpoint, deadline);
    if (SSL_set_fd(ssl.get(), socket.Get()) != 1)
    {
        Fail(endpoint, OpenSslReason());
    }
    Shake(ssl.get(), socket.Get(), endpoint, deadline);
    X509* const leaf = SSL_get1_peer_certificate(ssl.get());
    if (leaf == nullptr)
    {
        Fail(endpoint, "the server has no certificate");
    }
    return Certificate(leaf);
}

}  // namespace cert_approve
