#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

#include <gtest/gtest.h>

#include <tools/cert_approve/certificate.h>
#include <tools/cert_approve/failure.h>
#include <tools/cert_approve/testing/make_certificate.h>

namespace {

using cert_approve::Certificate;
using cert_approve::Failure;
using cert_approve::testing::CertificateSpec;
using cert_approve::testing::MakeCertificate;

Certificate Made(const CertificateSpec& spec)
{
    return Certificate(MakeCertificate(spec).Der());
}

}  // namespace

TEST(Certificate, ReadsPemAndDer)
{
    const auto made = MakeCertificate();
    const Certificate fromDer(made.Der());
    const Certificate fromPem("text before\n" + made.Pem() + MakeCertificate().Pem());
    EXPECT_EQ(fromDer.Fingerprint(), fromPem.Fingerprint());
    EXPECT_EQ(fromDer.Pem(), made.Pem());
}

TEST(Certificate, RefusesEverythingElse)
{
    const std::string der = MakeCertificate().Der();
    std::string encrypted = MakeCertificate().Pem();
    encrypted.insert(encrypted.find('\n') + 1,
                     "Proc-Type: 4,ENCRYPTED\nDEK-Info: AES-128-CBC,"
                     "00112233445566778899AABBCCDDEEFF\n\n");
    for (const std::string& input : {std::string(),
                                     std::string("no certificate"),
                                     std::string(1000, '\0'),
                                     der.substr(0, der.size() - 1),
                                     std::string("-----BEGIN CERTIFICATE-----\nAAAA\n"
                                                 "-----END CERTIFICATE-----\n"),
                                     encrypted})
    {
        EXPECT_THROW(Certificate{input}, Failure) << input;
    }
}

TEST(Certificate, WritesNamesAsRfc2253InUtf8)
{
    const std::pair<CertificateSpec, std::string> rows[] = {
        {{.subject = {{"C", "XX"}, {"O", "A, B"}, {"CN", "server.test"}}},
         "CN=server.test,O=A\\, B,C=XX"},
        {{.subject = {{"CN", "\xD0\x94\xD0\xB0"}}}, "CN=\xD0\x94\xD0\xB0"},
        {{.subject = {{"CN", "a\nb\x1B"}}}, "CN=a\\0Ab\\1B"},
        {{.subject = {{"1.2.3.4", "x"}}}, "1.2.3.4=#0C0178"},
        {{.subject = {{"CN", std::string(100'000, 'x')}}}, "CN=" + std::string(100'000, 'x')},
    };
    for (const auto& [spec, text] : rows)
    {
        EXPECT_EQ(Made(spec).Subject(), text);
        EXPECT_EQ(Made(spec).Issuer(), text);
    }
}

TEST(Certificate, CountsMicrosecondsOfAnyYear)
{
    const std::pair<const char*, std::int64_t> rows[] = {
        {"19500101000000Z", -631152000},
        {"20240229235959Z", 1709251199},
        {"99991231235959Z", 253402300799},
    };
    for (const auto& [date, seconds] : rows)
    {
        EXPECT_EQ(Made({.notBefore = date}).ValidFrom(), seconds * 1'000'000) << date;
        EXPECT_EQ(Made({.notAfter = date}).ValidTo(), seconds * 1'000'000) << date;
    }
    std::string der = MakeCertificate().Der();
    const std::string_view date = "240101000000Z";
    der.replace(der.find(date), date.size(), "24x101000000Z");
    EXPECT_THROW(static_cast<void>(Certificate(der).ValidFrom()), Failure);
}
