#include <string_view>

#include <component/cert_approver/tvo_ipc/wz_cert_approver_types.h>
#include <component/logger/logger.h>
#include <component/plk/exceptions.h>

namespace {

using certs::cert_service::CertData;
using tvo::ipc::arena::ReadText;
using tvo::ipc::arena::Reference;
using tvo::ipc::arena::WriteText;
using WzCertData = vx_cert_approver_Types_CertData;

constexpr std::uint32_t IssuerLimit = vx_cert_approver_Types_CertData_issuer_limit;
constexpr std::uint32_t SubjectLimit = vx_cert_approver_Types_CertData_subject_limit;
constexpr std::uint32_t FingerprintLimit = vx_cert_approver_Types_CertData_fingerprint_limit;
constexpr std::uint32_t AddressLimit = vx_cert_approver_Types_CertData_address_limit;

template <std::uint32_t Limit>
bool WriteN(wz_arena& arena, std::string_view text, Reference& reference)
{
    if (text.size() <= Limit)
    {
        return WriteText(arena, text, Limit, reference);
    }
    const std::string_view cut = text.substr(0, Limit);
    TVO_LOG_WARNING("Data: {} has been truncated: {}", text, cut);
    return WriteText(arena, cut, Limit, reference);
}

std::string TextOrEmpty(const wz_arena& arena, const Reference& reference)
{
    return std::string(ReadText(arena, reference).value_or(std::string_view()));
}

}  // namespace

namespace cert_approver::common {

WzCertData CastToWz(const CertData& certData, wz_arena* arena)
{
    WzCertData wz{};
    ZIN_CHECK(WriteN<IssuerLimit>(*arena, certData.issuer, wz.issuer),
              "Failed to convert a cert: Failed to write issuer");
    ZIN_CHECK(WriteN<SubjectLimit>(*arena, certData.subject, wz.subject),
              "Failed to convert a cert: Failed to write subject");
    wz.validFrom = certData.validFrom;
    wz.validTo = certData.validTo;
    ZIN_CHECK(WriteN<FingerprintLimit>(*arena, certData.fingerprint, wz.fingerprint),
              "Failed to convert a cert: Failed to write fingerprint");
    ZIN_CHECK(WriteN<AddressLimit>(*arena, certData.address, wz.address),
              "Failed to convert a cert: Failed to write address");
    return wz;
}

CertData CastFromWz(const WzCertData& wzCertData, const wz_arena* arena)
{
    return {
        .issuer = TextOrEmpty(*arena, wzCertData.issuer),
        .subject = TextOrEmpty(*arena, wzCertData.subject),
        .validFrom = wzCertData.validFrom,
        .validTo = wzCertData.validTo,
        .fingerprint = TextOrEmpty(*arena, wzCertData.fingerprint),
        .address = TextOrEmpty(*arena, wzCertData.address),
    };
}

}  // namespace cert_approver::common

namespace tvo::ipc::arena::conv {

WzCertData ToWz(wz_arena& arena, const CertData& certData, Status& status)
{
    WzCertData wz{};
    const auto write = [&](std::string_view text, std::uint32_t limit, Reference& reference)
    {
        status &= WriteText(arena, text, limit, reference);
    };
    write(certData.issuer, IssuerLimit, wz.issuer);
    write(certData.subject, SubjectLimit, wz.subject);
    wz.validFrom = certData.validFrom;
    wz.validTo = certData.validTo;
    write(certData.fingerprint, FingerprintLimit, wz.fingerprint);
    write(certData.address, AddressLimit, wz.address);
    return wz;
}

CertData FromWz(const wz_arena& arena, const WzCertData& wzCertData, Status& status) noexcept
{
    for (const Reference& reference :
         {wzCertData.issuer, wzCertData.subject, wzCertData.fingerprint, wzCertData.address})
    {
        status &= ReadText(arena, reference).has_value();
    }
    return cert_approver::common::CastFromWz(wzCertData, &arena);
}

}  // namespace tvo::ipc::arena::conv
