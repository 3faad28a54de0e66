#include <memory>
#include <stdexcept>

#include <openssl/evp.h>
#include <openssl/pem.h>
#include <openssl/x509.h>

#include <support/certificate.h>

namespace support {

namespace {

template <class T>
using Owned = std::unique_ptr<T, void (*)(T*)>;

void Require(bool done)
{
    if (!done)
    {
        throw std::runtime_error("OpenSSL refuses to make a certificate");
    }
}

// Entries made one by one escape the size limits of the attributes.
void SetName(X509_NAME* name, const CertificateText::Name& entries)
{
    for (const auto& [attribute, value] : entries)
    {
        const Owned<X509_NAME_ENTRY> entry(
            X509_NAME_ENTRY_create_by_NID(nullptr,
                                          OBJ_txt2nid(attribute.c_str()),
                                          V_ASN1_UTF8STRING,
                                          reinterpret_cast<const unsigned char*>(value.data()),
                                          static_cast<int>(value.size())),
            X509_NAME_ENTRY_free);
        Require(entry && X509_NAME_add_entry(name, entry.get(), -1, 0) == 1);
    }
}

template <class Write>
std::string Written(Write write)
{
    const Owned<BIO> bio(BIO_new(BIO_s_mem()), BIO_free_all);
    Require(bio && write(bio.get()) == 1);
    char* data = nullptr;
    const long size = BIO_get_mem_data(bio.get(), &data);
    return {data, static_cast<std::size_t>(size)};
}

std::string Sha256(const X509* certificate)
{
    unsigned char digest[EVP_MAX_MD_SIZE];
    unsigned int size = 0;
    Require(X509_digest(certificate, EVP_sha256(), digest, &size) == 1);
    std::string text;
    for (unsigned int i = 0; i < size; ++i)
    {
        constexpr char Digits[] = "0123456789ABCDEF";
        text += {Digits[digest[i] >> 4U], Digits[digest[i] & 15U]};
    }
    return text;
}

}  // namespace

Certificate MakeCertificate(const CertificateText& text)
{
    const Owned<EVP_PKEY> key(EVP_EC_gen("P-256"), EVP_PKEY_free);
    const Owned<X509> certificate(X509_new(), X509_free);
    Require(key && certificate);
    X509_set_version(certificate.get(), X509_VERSION_3);
    SetName(X509_get_subject_name(certificate.get()), text.subject);
    SetName(X509_get_issuer_name(certificate.get()), text.issuer);
    ASN1_TIME_set(X509_getm_notBefore(certificate.get()), text.notBefore);
    ASN1_TIME_set(X509_getm_notAfter(certificate.get()), text.notAfter);
    Require(X509_set_pubkey(certificate.get(), key.get()) == 1);
    Require(X509_sign(certificate.get(), key.get(), EVP_sha256()) > 0);
    return {Written([&](BIO* bio) { return PEM_write_bio_X509(bio, certificate.get()); }),
            Written(
                [&](BIO* bio) {
                    return PEM_write_bio_PrivateKey(
                        bio, key.get(), nullptr, nullptr, 0, nullptr, nullptr);
                }),
            Sha256(certificate.get())};
}

}  // namespace support
