#include <string>
#include <string_view>
#include <utility>

#include <gtest/gtest.h>

#include <tools/cert_approve/cert_record.h>
#include <tools/cert_approve/testing/make_certificate.h>

using cert_approve::Certificate;
using cert_approve::DisplayText;
using cert_approve::testing::MakeCertificate;

TEST(DisplayText, ShowsWhatDoesNotShowItself)
{
    const std::pair<std::string_view, std::string_view> rows[] = {
        {"CN=a\\, b", "CN=a\\, b"},
        {"\xD0\x94 \xF0\x9F\x94\x92", "\xD0\x94 \xF0\x9F\x94\x92"},
        {"a\nb\x7F", "a\\0Ab\\7F"},
        {"evil\xE2\x80\xAEtxt.moc", "evil\\E2\\80\\AEtxt.moc"},
        {"\xC2\x9B[2J", "\\C2\\9B[2J"},
        {"\xE2\x80", "\\E2\\80"},
        {"\\\n", "\\\\0A"},
        {std::string_view("\0", 1), "\\00"},
    };
    for (const auto& [text, shown] : rows)
    {
        EXPECT_EQ(DisplayText(text, 100), shown);
    }
}

TEST(DisplayText, CutsBetweenCharactersAndEscapes)
{
    const std::pair<std::string_view, std::string_view> rows[] = {
        {"12345678", "12345678"},
        {"123456789", "12345\u2026"},
        {"1234\u0414zyx", "1234\u2026"},
        {"123\u0414zyxw", "123\u0414\u2026"},
        {"1234\\, 89", "1234\u2026"},
        {"123\\0A789", "123\u2026"},
        {"12345\n", "12345\\0A"},
        {"12345\n89x", "12345\u2026"},
    };
    for (const auto& [text, shown] : rows)
    {
        EXPECT_EQ(DisplayText(text, 8), shown) << text;
    }
    EXPECT_EQ(DisplayText("abcd", 2), "");
}

TEST(CertRecord, FingerprintIsWholeAndGrouped)
{
    cert_approve::Sha256 digest{0x01, 0x23, 0xAB};
    digest.back() = 0xFF;
    EXPECT_EQ(cert_approve::FingerprintText(digest),
              "SHA-256 0123 AB00 0000 0000 0000 0000 0000 0000 0000 0000 0000 0000 0000 0000 0000 "
              "00FF");
}

TEST(CertRecord, FitsTheRequestWhateverTheCertificateHolds)
{
    std::string name;
    for (int i = 0; i < 300; ++i)
    {
        name += "\xE2\x80\xAE\xD0\x94\x01,";
    }
    const Certificate certificate(MakeCertificate({.subject = {{"O", name}, {"CN", name}}}).Der());
    const auto record = cert_approve::MakeCertData(certificate, std::string(300, 'a'));
    for (const std::string& text : {record.subject, record.issuer, record.address})
    {
        EXPECT_TRUE(text.size() <= 256U && text.size() > 240U) << text.size();
        EXPECT_TRUE(text.ends_with("\u2026"));
    }
    EXPECT_TRUE(record.subject.starts_with("CN=\\E2\\80\\AE\xD0\x94\\01\\,"));
}
