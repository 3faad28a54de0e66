#include <chrono>
#include <climits>
#include <ctime>
#include <new>

#include <openssl/pem.h>
#include <openssl/x509.h>

#include <tools/cert_approve/certificate.h>
#include <tools/cert_approve/failure.h>

#include "openssl_ptr.h"

namespace cert_approve {
namespace {

constexpr unsigned long NameFlags =
    XN_FLAG_RFC2253 & ~static_cast<unsigned long>(ASN1_STRFLGS_ESC_MSB);

/// Certificates are not encrypted; without this OpenSSL would ask the terminal for a password.
int NoPassword(char* /*buffer*/, int /*size*/, int /*isWriting*/, void* /*argument*/)
{
    return -1;
}

BioPtr NewMemoryBio()
{
    BioPtr bio(BIO_new(BIO_s_mem()));
    if (!bio)
    {
        throw std::bad_alloc();
    }
    return bio;
}

X509* ReadPem(std::string_view input)
{
    const BioPtr bio(BIO_new_mem_buf(input.data(), static_cast<int>(input.size())));
    return bio ? PEM_read_bio_X509(bio.get(), nullptr, &NoPassword, nullptr) : nullptr;
}

X509* ReadDer(std::string_view input)
{
    const auto* bytes = reinterpret_cast<const unsigned char*>(input.data());
    return d2i_X509(nullptr, &bytes, static_cast<long>(input.size()));
}

X509* Read(std::string_view input)
{
    X509* certificate = nullptr;
    if (!input.empty() && input.size() <= INT_MAX)
    {
        certificate = ReadPem(input);
        if (certificate == nullptr)
        {
            certificate = ReadDer(input);
        }
    }
    ERR_clear_error();
    if (certificate == nullptr)
    {
        throw Failure(ExitStatus::BadInput, "no certificate in PEM or DER form");
    }
    return certificate;
}

std::string NameText(const X509_NAME* name)
{
    if (X509_NAME_entry_count(name) == 0)
    {
        return {};
    }
    const BioPtr bio = NewMemoryBio();
    if (X509_NAME_print_ex(bio.get(), name, 0, NameFlags) < 0)
    {
        ERR_clear_error();
        throw Failure(ExitStatus::BadInput, "the certificate has a name that cannot be read");
    }
    return Content(*bio);
}

std::int64_t Microseconds(const ASN1_TIME* time)
{
    std::tm parts{};
    if (time == nullptr || ASN1_TIME_to_tm(time, &parts) != 1)
    {
        ERR_clear_error();
        throw Failure(ExitStatus::BadInput,
                      "the certificate's validity holds something else than dates");
    }
    using namespace std::chrono;
    const sys_days day = year(parts.tm_year + 1900) / (parts.tm_mon + 1) / parts.tm_mday;
    const auto moment = day + hours(parts.tm_hour) + minutes(parts.tm_min) + seconds(parts.tm_sec);
    return duration_cast<microseconds>(moment.time_since_epoch()).count();
}

}  // namespace

void Certificate::Release::operator()(x509_st* certificate) const noexcept
{
    X509_free(certificate);
}

Certificate::Certificate(std::string_view input) : Certificate(Read(input)) {}

std::string Certificate::Subject() const
{
    return NameText(X509_get_subject_name(m_x509.get()));
}

std::string Certificate::Issuer() const
{
    return NameText(X509_get_issuer_name(m_x509.get()));
}

std::int64_t Certificate::ValidFrom() const
{
    return Microseconds(X509_get0_notBefore(m_x509.get()));
}

std::int64_t Certificate::ValidTo() const
{
    return Microseconds(X509_get0_notAfter(m_x509.get()));
}

Sha256 Certificate::Fingerprint() const
{
    Sha256 digest{};
    unsigned size = 0;
    if (X509_digest(m_x509.get(), EVP_sha256(), digest.data(), &size) != 1 || size != digest.size())
    {
        throw Failure(ExitStatus::BadInput, "cannot make the fingerprint: " + OpenSslReason());
    }
    return digest;
}

std::string Certificate::Pem() const
{
    const BioPtr bio = NewMemoryBio();
    if (PEM_write_bio_X509(bio.get(), m_x509.get()) != 1)
    {
        throw Failure(ExitStatus::BadInput, "cannot write the certificate: " + OpenSslReason());
    }
    return Content(*bio);
}

}  // namespace cert_approve
