#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include <component/cert_approver/cert_data.h>
#include <component/cert_approver/verdict.h>
#include <shared/common/tvo/ipc/proxy/application_settings.h>

namespace cert_approver::proxy {

/// The approval service as its callers see it. The calls block until a person has answered, without
/// a limit. Calls from several threads are possible; the service asks about one at a time.
///
/// A text longer than its field (issuer, subject and address 256 bytes, fingerprint 128) is cut
/// there, with a warning in the log; a caller who cares where it is cut does so beforehand.
class ICertApproverClient
{
public:
    virtual ~ICertApproverClient() = default;

    /// @param result  a text that the service returns beside the verdict, today always empty
    /// @throws std::runtime_error  as `ApproveCert`
    virtual void ApproveZrcCert(const certs::cert_service::CertData& certData,
                                Mode mode,
                                Verdict& verdict,
                                std::string& result) = 0;

    /// Asks about one certificate. On failure `verdict` keeps its value.
    /// @throws std::runtime_error  when the service has gone ("... transport error") or has refused
    ///         the call ("... server error")
    /// @throws zin::CheckResultFailedException  when the service answers with an unknown verdict
    virtual void ApproveCert(const certs::cert_service::CertData& certData, Verdict& verdict) = 0;
};

/// Finds the service by its interface and connects to it.
/// @param timeoutMs  milliseconds for finding and connecting together, the latter getting a second
///                   at least; 0xFFFFFFFF waits without a limit, 0 looks once
/// @param settings  replaceable services of the connection; by default a failed connect leaves a
///                  line on standard error
/// @throws zin::CheckFailedException  when nobody serves the interface within the limit
/// @throws std::runtime_error  when the server was found and the connection could not be made
std::unique_ptr<ICertApproverClient> CreateCertApproverClient(
    std::uint32_t timeoutMs,
    const tvoipc::api_v1::ApplicationSettings& settings = {});

}  // namespace cert_approver::proxy
