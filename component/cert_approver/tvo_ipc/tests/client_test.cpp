#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <component/cert_approver/tvo_ipc/client.h>
#include <component/cert_approver/tvo_ipc/vx_cert_approver.h>
#include <component/cert_approver/tvo_ipc/wz_cert_approver_types.h>
#include <component/plk/exceptions.h>
#include <platform/testing/platform_double.h>

namespace {

using namespace cert_approver;
using platform::testing::Call;
using proxy::CreateCertApproverClient;
using testing::ThrowsMessage;

const certs::cert_service::CertData Cert{"issuer", "subject", 1, 2, "fingerprint", "address"};

class ClientTest : public testing::Test
{
protected:
    /// Serves `ApproveCert` with this verdict byte and size word.
    void ServeVerdict(unsigned char byte, std::uint32_t sizeWord = 32)
    {
        using Request = vx_cert_approver_CertApprover_ApproveCert_req;
        using Response = vx_cert_approver_CertApprover_ApproveCert_res;
        platform.Serve(6,
                       [=](auto, const wz_message* message, auto* arena, wz_message* answer, auto)
                       {
                           EXPECT_EQ(message->iid, 6);
                           EXPECT_EQ(message->mid, 1);
                           EXPECT_EQ(message->size, 72U);
                           EXPECT_EQ(common::CastFromWz(
                                         reinterpret_cast<const Request*>(message)->cert, arena),
                                     Cert);
                           if (sizeWord != sizeof(wz_message))
                           {
                               reinterpret_cast<Response*>(answer)->verdict = byte;
                           }
                           answer->size = sizeWord;
                           return 0;
                       });
    }

    void Ask()
    {
        CreateCertApproverClient(0)->ApproveCert(Cert, verdict);
    }

    platform::testing::PlatformDouble platform;
    Verdict verdict = Verdict::Approve;
};

TEST_F(ClientTest, AsksAndReturnsTheVerdict)
{
    ServeVerdict(0);
    Ask();
    EXPECT_EQ(verdict, Verdict::Close);
    ServeVerdict(1);
    Ask();
    EXPECT_EQ(verdict, Verdict::Approve);
    ServeVerdict(1, sizeof(wz_message));
    Ask();
    EXPECT_EQ(verdict, Verdict::Close) << "a response without a verdict is a refusal";
    EXPECT_EQ(platform.Count(Call::HandleClose), 3U);
}

TEST_F(ClientTest, PassesModeAndReturnsTheText)
{
    using Request = vx_cert_approver_CertApprover_ApproveZrcCert_req;
    using Response = vx_cert_approver_CertApprover_ApproveZrcCert_res;
    platform.Serve(6,
                   [](auto, const wz_message* message, auto, wz_message* answer, wz_arena* arena)
                   {
                       EXPECT_EQ(message->mid, 0);
                       EXPECT_EQ(message->size, 80U);
                       EXPECT_EQ(reinterpret_cast<const Request*>(message)->mode, 1);
                       auto& response = *reinterpret_cast<Response*>(answer);
                       EXPECT_TRUE(tvo::ipc::arena::WriteText(
                           *arena, std::string(128, 't'), 128, response.result));
                       return 0;
                   });
    std::string result;
    const auto client = CreateCertApproverClient(0xFFFFFFFF);
    client->ApproveZrcCert(Cert, Mode::Mode1, verdict, result);
    EXPECT_EQ(verdict, Verdict::Close);
    EXPECT_EQ(result, std::string(128, 't'));
    EXPECT_THROW(client->ApproveZrcCert(Cert, Mode{2}, verdict, result),
                 zin::CheckResultFailedException);
    EXPECT_EQ(platform.Count(Call::TransportCall), 1U);
}

TEST_F(ClientTest, FailuresAreExceptionsAndLeaveTheVerdict)
{
    const std::string method = "vx_cert_approver_CertApprover_ApproveCert";
    EXPECT_THROW(Ask(), zin::CheckFailedException) << "nobody there";
    ServeVerdict(1);
    platform.Return(Call::TransportCall, {.code = XoBroken});
    EXPECT_THAT([&] { Ask(); }, ThrowsMessage<std::runtime_error>(method + " transport error"));
    ServeVerdict(0, WzMessageFailedBit | 32);
    EXPECT_THAT([&] { Ask(); }, ThrowsMessage<std::runtime_error>(method + " server error"));
    ServeVerdict(2);
    EXPECT_THROW(Ask(), zin::CheckResultFailedException);
    platform.Fail(Call::CmConnect, XoTimedOut);
    EXPECT_THROW(Ask(), std::runtime_error);
    EXPECT_EQ(verdict, Verdict::Approve);
    EXPECT_EQ(platform.Count(Call::HandleClose), 3U);
}

}  // namespace
