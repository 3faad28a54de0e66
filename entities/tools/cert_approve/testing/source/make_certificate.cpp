#include <array>
#include <stdexcept>

#include <openssl/asn1.h>
#include <openssl/bio.h>
#include <openssl/evp.h>
#include <openssl/pem.h>
#include <openssl/sha.h>

#include <tools/cert_approve/testing/make_certificate.h>

namespace cert_approve::testing {
namespace {

void Require(bool isGood, const char* what)
{
    if (!isGood)
    {
        throw std::runtime_error(std::string("cannot make a certificate: ") + what);
    }
}

void SetName(X509_NAME* name, const CertificateSpec::Name& entries)
{
    for (const auto& [type, value] : entries)
    {
        // A plain ASN.1 type, unlike the MBSTRING ones, is neither checked nor limited.
        Require(X509_NAME_add_entry_by_txt(name,
                                           type.c_str(),
                                           V_ASN1_UTF8STRING,
                                           reinterpret_cast<const unsigned char*>(value.data()),
                                           static_cast<int>(value.size()),
                                           -1,
                                           0) == 1,
                "name");
    }
}

void SetDates(X509* x509, const CertificateSpec& spec)
{
    Require(ASN1_TIME_set_string_X509(X509_getm_notBefore(x509), spec.notBefore.c_str()) == 1 &&
                ASN1_TIME_set_string_X509(X509_getm_notAfter(x509), spec.notAfter.c_str()) == 1,
            "dates");
}

template <class Write>
std::string Written(Write write)
{
    const std::unique_ptr<BIO, decltype(&BIO_free)> bio(BIO_new(BIO_s_mem()), &BIO_free);
    Require(write(bio.get()) == 1, "output");
    char* data = nullptr;
    const long size = BIO_get_mem_data(bio.get(), &data);
    return {data, static_cast<std::size_t>(size)};
}

}  // namespace

std::string MadeCertificate::Der() const
{
    return Written([this](BIO* bio) { return i2d_X509_bio(bio, x509.get()); });
}

std::string MadeCertificate::Pem() const
{
    return Written([this](BIO* bio) { return PEM_write_bio_X509(bio, x509.get()); });
}

std::string MadeCertificate::KeyPem() const
{
    return Written(
        [this](BIO* bio) {
            return PEM_write_bio_PrivateKey(bio, key.get(), nullptr, nullptr, 0, nullptr, nullptr);
        });
}

std::string MadeCertificate::Sha256() const
{
    std::array<unsigned char, SHA256_DIGEST_LENGTH> digest{};
    Require(X509_digest(x509.get(), EVP_sha256(), digest.data(), nullptr) == 1, "digest");
    std::string text;
    for (const unsigned char byte : digest)
    {
        constexpr char Digits[] = "0123456789ABCDEF";
        text += {Digits[byte >> 4U], Digits[byte & 15U]};
    }
    return text;
}

MadeCertificate MakeCertificate(const CertificateSpec& spec)
{
    MadeCertificate made{{X509_new(), &X509_free}, {EVP_EC_gen("P-256"), &EVP_PKEY_free}};
    X509* const x509 = made.x509.get();
    Require(x509 != nullptr && made.key != nullptr, "objects");
    Require(X509_set_version(x509, X509_VERSION_3) == 1, "version");
    Require(ASN1_INTEGER_set(X509_get_serialNumber(x509), 1) == 1, "serial number");
    SetName(X509_get_subject_name(x509), spec.subject);
    SetName(X509_get_issuer_name(x509), spec.issuer.value_or(spec.subject));
    SetDates(x509, spec);
    Require(X509_set_pubkey(x509, made.key.get()) == 1, "key");
    Require(X509_sign(x509, made.key.get(), EVP_sha256()) > 0, "signature");
    return made;
}

}  // namespace cert_approve::testing
