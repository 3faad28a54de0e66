#include <algorithm>
#include <iterator>

#include <fmt/format.h>

#include <component/plk/utf8.h>
#include <tools/cert_approve/cert_record.h>

namespace cert_approve {
namespace {

constexpr std::size_t NameLimit = 256;
constexpr std::size_t AddressLimit = 256;
constexpr std::size_t BytesInGroup = 2;
constexpr std::string_view Ellipsis = "\xE2\x80\xA6";

bool IsHexDigit(char c)
{
    return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F');
}

/// The length of an escape at the beginning of an RFC 2253 text, 0 for none.
std::size_t EscapeLength(std::string_view text)
{
    if (text.size() < 2 || text[0] != '\\')
    {
        return 0;
    }
    if (text.size() >= 3 && IsHexDigit(text[1]) && IsHexDigit(text[2]))
    {
        return 3;
    }
    return text[1] > ' ' && text[1] < '\x7F' ? 2 : 0;
}

std::string Escape(std::string_view bytes)
{
    std::string escaped;
    for (const char byte : bytes)
    {
        fmt::format_to(std::back_inserter(escaped), "\\{:02X}", static_cast<unsigned char>(byte));
    }
    return escaped;
}

/// Takes the piece off the text that is shown or left out as a whole.
std::string TakePiece(std::string_view& text)
{
    std::size_t length = EscapeLength(text);
    bool isShown = length != 0;
    if (!isShown)
    {
        const plk::text::Utf8Character character = plk::text::ReadUtf8(text);
        length = character.length;
        isShown = character.isValid && !plk::text::IsUnprintable(character.codePoint);
    }
    const std::string_view bytes = text.substr(0, length);
    text.remove_prefix(length);
    return isShown ? std::string(bytes) : Escape(bytes);
}

}  // namespace

std::string DisplayText(std::string_view text, std::size_t limit)
{
    const std::size_t cutLimit = limit - std::min(limit, Ellipsis.size());
    std::string shown;
    std::size_t cut = 0;  // where the ellipsis would stand
    while (!text.empty())
    {
        const std::string piece = TakePiece(text);
        if (shown.size() + piece.size() > limit)
        {
            shown.resize(cut);
            shown += Ellipsis.substr(0, limit < Ellipsis.size() ? 0 : Ellipsis.size());
            break;
        }
        shown += piece;
        if (shown.size() <= cutLimit)
        {
            cut = shown.size();
        }
    }
    return shown;
}

std::string FingerprintText(const Sha256& digest)
{
    std::string text = "SHA-256";
    for (std::size_t i = 0; i < digest.size(); ++i)
    {
        fmt::format_to(
            std::back_inserter(text), "{}{:02X}", i % BytesInGroup == 0 ? " " : "", digest[i]);
    }
    return text;
}

certs::cert_service::CertData MakeCertData(const Certificate& certificate, std::string_view address)
{
    return {.issuer = DisplayText(certificate.Issuer(), NameLimit),
            .subject = DisplayText(certificate.Subject(), NameLimit),
            .validFrom = certificate.ValidFrom(),
            .validTo = certificate.ValidTo(),
            .fingerprint = FingerprintText(certificate.Fingerprint()),
            .address = DisplayText(address, AddressLimit)};
}

}  // namespace cert_approve
