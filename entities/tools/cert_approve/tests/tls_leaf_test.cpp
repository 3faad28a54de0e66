#include "tls_leaf.h"

#include <chrono>
#include <future>
#include <memory>
#include <string>

#include <arpa/inet.h>
#include <gtest/gtest.h>
#include <openssl/ssl.h>
#include <sys/socket.h>

#include <tools/cert_approve/failure.h>
#include <tools/cert_approve/testing/make_certificate.h>

#include "descriptor.h"

namespace {

using namespace std::chrono_literals;
using cert_approve::Certificate;
using cert_approve::Descriptor;
using cert_approve::Endpoint;
using cert_approve::ExitStatus;
using cert_approve::Failure;
using cert_approve::FetchLeaf;
using cert_approve::testing::MadeCertificate;
using cert_approve::testing::MakeCertificate;

/// Listens on a port of loopback that the system chooses.
class Listener
{
public:
    explicit Listener(int family = AF_INET) : m_socket(::socket(family, SOCK_STREAM, 0))
    {
        // All zeroes but the family: any address of this machine, any port.
        sockaddr_in6 address{};
        address.sin6_family = static_cast<sa_family_t>(family);
        socklen_t size = family == AF_INET6 ? sizeof(sockaddr_in6) : sizeof(sockaddr_in);
        auto* const target = reinterpret_cast<sockaddr*>(&address);
        m_isListening = ::bind(m_socket.Get(), target, size) == 0 &&
                        ::listen(m_socket.Get(), 1) == 0 &&
                        ::getsockname(m_socket.Get(), target, &size) == 0;
        m_place = {family == AF_INET6 ? "::1" : "127.0.0.1",
                   std::to_string(ntohs(address.sin6_port))};
    }

    [[nodiscard]] bool IsListening() const
    {
        return m_isListening;
    }
    [[nodiscard]] const Endpoint& Place() const
    {
        return m_place;
    }
    [[nodiscard]] Descriptor Accept() const
    {
        return Descriptor(::accept(m_socket.Get(), nullptr, nullptr));
    }

private:
    Descriptor m_socket;
    Endpoint m_place;
    bool m_isListening = false;
};

/// Serves one TLS connection.
/// @returns the name that was asked for
std::string Serve(const Listener& listener, const MadeCertificate& certificate)
{
    const std::unique_ptr<SSL_CTX, decltype(&SSL_CTX_free)> context(
        SSL_CTX_new(TLS_server_method()), &SSL_CTX_free);
    SSL_CTX_use_certificate(context.get(), certificate.x509.get());
    SSL_CTX_use_PrivateKey(context.get(), certificate.key.get());
    // Nothing follows the handshake, so that no write can meet a client that has hung up.
    SSL_CTX_set_num_tickets(context.get(), 0);
    const Descriptor connection = listener.Accept();
    const std::unique_ptr<SSL, decltype(&SSL_free)> ssl(SSL_new(context.get()), &SSL_free);
    SSL_set_fd(ssl.get(), connection.Get());
    EXPECT_EQ(SSL_accept(ssl.get()), 1);
    const char* const name = SSL_get_servername(ssl.get(), TLSEXT_NAMETYPE_host_name);
    return name != nullptr ? name : "";
}

void ExpectUnreachable(const Endpoint& endpoint, std::chrono::milliseconds limit)
{
    try
    {
        FetchLeaf(endpoint, "", limit);
        ADD_FAILURE();
    }
    catch (const Failure& failure)
    {
        EXPECT_EQ(failure.Status(), ExitStatus::ServerUnreachable) << failure.what();
    }
}

}  // namespace

TEST(TlsLeaf, GetsASelfSignedCertificateUnderTheNameAskedFor)
{
    const MadeCertificate made = MakeCertificate({.subject = {{"CN", std::string(200'000, 'x')}}});
    for (const int family : {AF_INET, AF_INET6})
    {
        const Listener listener(family);
        if (!listener.IsListening())
        {
            continue;  // a machine without IPv6
        }
        const std::string name = family == AF_INET ? "name.test" : "";
        auto asked = std::async(std::launch::async, [&] { return Serve(listener, made); });
        const Certificate leaf = FetchLeaf(listener.Place(), name, 20s);
        EXPECT_EQ(leaf.Fingerprint(), Certificate(made.Der()).Fingerprint());
        EXPECT_EQ(asked.get(), name);
    }
}

TEST(TlsLeaf, ReportsAServerThatIsNotThere)
{
    const Endpoint gone = Listener().Place();
    ExpectUnreachable(gone, 20s);
    ExpectUnreachable({"name.invalid", "443"}, 20s);
}

TEST(TlsLeaf, ReportsAServerThatSpeaksNoTls)
{
    const Listener listener;
    const auto server = std::async(
        std::launch::async,
        [&listener] { return ::send(listener.Accept().Get(), "220 hello\r\n", 11, MSG_NOSIGNAL); });
    ExpectUnreachable(listener.Place(), 20s);
}

TEST(TlsLeaf, GivesUpOnAServerThatSaysNothing)
{
    const Listener listener;
    ExpectUnreachable(listener.Place(), 50ms);
}
