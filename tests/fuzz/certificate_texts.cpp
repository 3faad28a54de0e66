#include <component/plk/utf8.h>
#include <tools/cert_approve/cert_record.h>
#include <tools/cert_approve/certificate.h>
#include <tools/cert_approve/failure.h>
#include <tools/cert_approve/testing/make_certificate.h>

#include "fuzz_target.h"

namespace fuzz {
namespace {

void RequireShowable(std::string_view text, std::size_t limit)
{
    Require(text.size() <= limit, "a text fits its field");
    while (!text.empty())
    {
        const auto character = plk::text::ReadUtf8(text);
        Require(character.isValid, "a text is UTF-8");
        Require(!plk::text::IsUnprintable(character.codePoint), "a text shows itself");
        text.remove_prefix(character.length);
    }
}

void Run(std::string_view bytes)
{
    RequireShowable(cert_approve::DisplayText(bytes, 256), 256);
    RequireShowable(cert_approve::DisplayText(bytes, bytes.size()), bytes.size());
    try
    {
        const cert_approve::Certificate certificate(bytes);
        const auto data = cert_approve::MakeCertData(certificate, bytes);
        RequireShowable(data.subject, 256);
        RequireShowable(data.issuer, 256);
        RequireShowable(data.fingerprint, 128);
        Require(
            cert_approve::Certificate(certificate.Pem()).Fingerprint() == certificate.Fingerprint(),
            "a written certificate is the one that was read");
    }
    catch (const cert_approve::Failure&)
    {
        // Most inputs are no certificate.
    }
}

std::vector<std::string> Seeds()
{
    using cert_approve::testing::MakeCertificate;
    const std::string der = MakeCertificate().Der();
    return {"",
            "CN=a\\, b,O=\\0A\\E2\\80\\AE",
            "\xE2\x80\xAE\xF0\x9F\x94\x92\x01\x7F\xC2\x9B\xFF",
            "-----BEGIN CERTIFICATE-----\nMAA=\n-----END CERTIFICATE-----\n",
            der,
            der.substr(0, der.size() / 2),
            MakeCertificate().Pem(),
            MakeCertificate({.subject = {{"O", "\xE2\x80\xAEmoc\n"}, {"CN", std::string(300, '"')}},
                             .notAfter = "99991231235959Z"})
                .Der(),
            MakeCertificate({.subject = {}}).Der()};
}

}  // namespace

const Target CertificateTexts{"certificate_texts", &Run, &Seeds};

}  // namespace fuzz
