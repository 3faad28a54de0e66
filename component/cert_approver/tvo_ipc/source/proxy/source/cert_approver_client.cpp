#include "cert_approver_client.h"

#include <utility>

#include <component/cert_approver/tvo_ipc/type_utils.h>
#include <component/plk/exceptions.h>

namespace cert_approver::proxy {

CertApproverClient::CertApproverClient(tvoipc::ProxyPtr<Generated> proxy)
    : m_proxy(std::move(proxy))
{
    ZIN_CHECK(m_proxy != nullptr, "generated CertApprover proxy is nullptr!");
}

void CertApproverClient::ApproveZrcCert(const certs::cert_service::CertData& certData,
                                        Mode mode,
                                        Verdict& verdict,
                                        std::string& result)
{
    unsigned char ipcMode = 0;
    unsigned char ipcVerdict = 0;
    std::string text;
    ZIN_CHECK_RESULT(common::ModeToIpc(mode, ipcMode), "CertApprover client: unknown mode");
    m_proxy->ApproveZrcCert(certData, ipcMode, ipcVerdict, text);
    ZIN_CHECK_RESULT(common::IpcToVerdict(ipcVerdict, verdict),
                     "CertApprover client: unknown verdict");
    result = std::move(text);
}

void CertApproverClient::ApproveCert(const certs::cert_service::CertData& certData,
                                     Verdict& verdict)
{
    unsigned char ipcVerdict = 0;
    m_proxy->ApproveCert(certData, ipcVerdict);
    ZIN_CHECK_RESULT(common::IpcToVerdict(ipcVerdict, verdict),
                     "CertApprover client: unknown verdict");
}

}  // namespace cert_approver::proxy
