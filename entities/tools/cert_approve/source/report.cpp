#include "report.h"

#include <chrono>
#include <cstdint>
#include <iterator>
#include <string_view>

#include <fmt/format.h>

#include <component/plk/utf8.h>

namespace cert_approve {
namespace {

/// RFC 8259: quotes, backslashes and control characters escaped; bytes that are no UTF-8 become the
/// replacement character.
std::string JsonString(std::string_view text)
{
    std::string json = "\"";
    while (!text.empty())
    {
        const auto character = plk::text::ReadUtf8(text);
        const std::string_view bytes = text.substr(0, character.length);
        text.remove_prefix(character.length);
        if (!character.isValid)
        {
            json += "\\ufffd";
        }
        else if (character.codePoint < 0x20)
        {
            fmt::format_to(
                std::back_inserter(json), "\\u{:04x}", static_cast<unsigned>(character.codePoint));
        }
        else
        {
            json += bytes == "\"" || bytes == "\\" ? "\\" : "";
            json += bytes;
        }
    }
    return json + '"';
}

/// RFC 3339, in UTC.
std::string JsonDate(std::int64_t microseconds)
{
    using namespace std::chrono;
    const sys_time<std::chrono::microseconds> moment{std::chrono::microseconds(microseconds)};
    const auto day = floor<days>(moment);
    const year_month_day date(day);
    const hh_mm_ss time(floor<seconds>(moment - day));
    return fmt::format("\"{:04}-{:02}-{:02}T{:02}:{:02}:{:02}Z\"",
                       static_cast<int>(date.year()),
                       static_cast<unsigned>(date.month()),
                       static_cast<unsigned>(date.day()),
                       time.hours().count(),
                       time.minutes().count(),
                       time.seconds().count());
}

}  // namespace

const char* VerdictText(cert_approver::Verdict verdict)
{
    return verdict == cert_approver::Verdict::Approve ? "approve" : "close";
}

std::string JsonReport(cert_approver::Verdict verdict,
                       const certs::cert_service::CertData& certData,
                       const std::string& savedPath)
{
    std::string json =
        fmt::format(R"({{"verdict":"{}","subject":{},"issuer":{},"validFrom":{},"validTo":{},)"
                    R"("fingerprint":{},"address":{})",
                    VerdictText(verdict),
                    JsonString(certData.subject),
                    JsonString(certData.issuer),
                    JsonDate(certData.validFrom),
                    JsonDate(certData.validTo),
                    JsonString(certData.fingerprint),
                    JsonString(certData.address));
    if (!savedPath.empty())
    {
        json += ",\"saved\":" + JsonString(savedPath);
    }
    return json + '}';
}

}  // namespace cert_approve
