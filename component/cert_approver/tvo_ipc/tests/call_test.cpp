#include <gmock/gmock.h>

#include <component/cert_approver/tvo_ipc/cert_approver_stub.h>
#include <component/cert_approver/tvo_ipc/client.h>
#include <component/cert_approver/tvo_ipc/vx_cert_approver.h>
#include <component/cert_approver/tvo_ipc/wz_cert_approver_types.h>
#include <component/logger/testing/recording_logger.h>
#include <component/plk/exceptions.h>
#include <platform/testing/platform_double.h>

namespace {

using namespace cert_approver;
using certs::cert_service::CertData;
using platform::testing::Call;
using proxy::CreateCertApproverClient;
using testing::_;
using testing::AllOf;
using testing::DoAll;
using testing::HasSubstr;
using testing::Return;
using testing::SetArgReferee;
using testing::StartsWith;
using testing::ThrowsMessage;
using tvo::logger::LogLevel;

constexpr unsigned short Riid = 6;
const CertData Cert{"issuer", "subject", 1, 2, "fingerprint", "address"};

struct MockHandler : ICertApprover
{
    MOCK_METHOD(int,
                ApproveZrcCert,
                (const CertData&, Mode, Verdict&, std::string&),
                (noexcept, override));
    MOCK_METHOD(int, ApproveCert, (const CertData&, Verdict&), (noexcept, override));
};

/// A client whose calls reach the stub of a handler, or a server of the test's.
class CertApproverCall : public testing::Test
{
protected:
    CertApproverCall()
    {
        platform.Serve(Riid,
                       [this](auto, auto* request, auto* in, auto* response, auto* out)
                       {
                           requests += fmt::format("{}+{} ", request->mid, request->size);
                           const bool isServed = server || Dispatch(request, in, response, out);
                           response->size |= isServed ? 0 : WzMessageFailedBit;
                           return server ? server(*response) : 0;
                       });
    }

    bool Dispatch(const wz_message* request,
                  const wz_arena* in,
                  wz_message* response,
                  wz_arena* out)
    {
        return vx_cert_approver_CertApprover_component_dispatch(
            component->GetComponent().get(), Riid, request, in, response, out);
    }

    void Ask()
    {
        CreateCertApproverClient(0)->ApproveCert(Cert, verdict);
    }

    Verdict AskHandler(Verdict given, int code = 0)
    {
        EXPECT_CALL(*handler, ApproveCert(Cert, _))
            .WillOnce(DoAll(SetArgReferee<1>(given), Return(code)));
        Ask();
        return verdict;
    }

    const std::shared_ptr<MockHandler> handler =
        std::make_shared<testing::StrictMock<MockHandler>>();
    const std::unique_ptr<stub::ICertApproverComponent> component =
        stub::CreateCertApproverComponent(handler);
    std::function<int(wz_message&)> server;
    std::string requests;
    tvo::logger::testing::RecordingLogger log;
    platform::testing::PlatformDouble platform;
    Verdict verdict = Verdict::Approve;
    std::string text;
};

TEST_F(CertApproverCall, BringsTheQuestionAndTheVerdict)
{
    EXPECT_EQ(AskHandler(Verdict::Close), Verdict::Close);
    EXPECT_EQ(AskHandler(Verdict::Approve), Verdict::Approve);
    EXPECT_EQ(AskHandler(Verdict::Close, -5), Verdict::Close);
    EXPECT_TRUE(log.Contains(LogLevel::Error, "CertApprover stub: Failed  to call ApproveCert"));
    EXPECT_EQ(requests, "1+72 1+72 1+72 ");
    EXPECT_EQ(platform.Count(Call::HandleClose), 3U);
}

TEST_F(CertApproverCall, CutsLongTextsWithAWarning)
{
    const std::string longTexts[] = {
        std::string(257, 'i'), std::string(129, 'f'), std::string(300, 'a')};
    const std::string cut[] = {std::string(256, 'i'), std::string(128, 'f'), std::string(256, 'a')};
    const std::string fits(256, 's');
    const auto certOf = [&](const auto& texts)
    {
        return CertData{texts[0], fits, INT64_MIN, 253'402'300'799'000'000, texts[1], texts[2]};
    };
    EXPECT_CALL(*handler, ApproveCert(certOf(cut), _));
    CreateCertApproverClient(0)->ApproveCert(certOf(longTexts), verdict);
    for (const int i : {0, 1, 2})
    {
        EXPECT_TRUE(log.Contains(LogLevel::Warning,
                                 "Data: " + longTexts[i] + " has been truncated: " + cut[i]));
    }
}

TEST_F(CertApproverCall, BringsTheModeAndTheTextIfThatFits)
{
    for (const std::size_t size : {0U, 128U, 129U})
    {
        const std::string given(size, 't');
        EXPECT_CALL(*handler, ApproveZrcCert(Cert, Mode::Mode1, _, _))
            .WillOnce(DoAll(SetArgReferee<2>(Verdict::Approve), SetArgReferee<3>(given), Return(0)))
            .WillOnce(Return(-5));
        const auto client = CreateCertApproverClient(0xFFFFFFFF);
        client->ApproveZrcCert(Cert, Mode::Mode1, verdict, text);
        EXPECT_EQ(verdict, Verdict::Approve);
        EXPECT_EQ(text, size <= 128 ? given : "");
        client->ApproveZrcCert(Cert, Mode::Mode1, verdict, text);
        EXPECT_EQ(verdict, Verdict::Close);
        EXPECT_THROW(client->ApproveZrcCert(Cert, Mode{2}, verdict, text),
                     zin::CheckResultFailedException);
    }
    EXPECT_TRUE(log.Contains(LogLevel::Error, "CertApprover stub: Failed  to call ApproveZrcCert"));
    EXPECT_EQ(requests, "0+80 0+80 0+80 0+80 0+80 0+80 ");
}

TEST_F(CertApproverCall, FailuresAreExceptionsAndLeaveTheVerdict)
{
    const std::string method = "vx_cert_approver_CertApprover_ApproveCert";
    const auto isServerError = ThrowsMessage<std::runtime_error>(method + " server error");
    EXPECT_THAT([&] { AskHandler(Verdict{2}); }, isServerError);
    const auto answer = [](std::uint32_t size, std::uint8_t byte)
    {
        return [=](wz_message& response)
        {
            using Response = vx_cert_approver_CertApprover_ApproveCert_res;
            reinterpret_cast<Response&>(response).verdict = byte;
            response.size = size;
            return XoOk;
        };
    };
    server = answer(WzMessageFailedBit | 32, 0);
    EXPECT_THAT([&] { Ask(); }, isServerError);
    server = answer(32, 2);
    EXPECT_THROW(Ask(), zin::CheckResultFailedException);
    EXPECT_EQ(verdict, Verdict::Approve);
    server = [](wz_message& response)
    {
        response.size = sizeof(wz_message);
        return XoOk;
    };
    EXPECT_NO_THROW(Ask());
    EXPECT_EQ(verdict, Verdict::Close) << "a response without a verdict is a refusal";
    verdict = Verdict::Approve;
    platform.Return(Call::TransportCall, {.code = XoBroken});
    EXPECT_THAT([&] { Ask(); }, ThrowsMessage<std::runtime_error>(method + " transport error"));
    EXPECT_EQ(platform.Count(Call::HandleClose), 5U);
    platform.Fail(Call::CmConnect, XoTimedOut);
    EXPECT_THROW(Ask(), std::runtime_error);
    platform.Fail(Call::FindTarget);
    EXPECT_THROW(Ask(), zin::CheckFailedException) << "nobody there";
    EXPECT_EQ(verdict, Verdict::Approve);
}

TEST_F(CertApproverCall, StubServesSoundRequestsOnly)
{
    EXPECT_THROW(stub::CreateCertApproverComponent(nullptr), zin::InvalidArgumentException);
    // What the rows leave out ends the service, which the tests of the whole program show.
    const struct
    {
        std::uint16_t mid;
        bool hasArena;
        std::uint32_t size;  ///< of the reply; 99 for none
    } rows[] = {{0, true, 40}, {1, true, 32}, {1, false, 32}, {0, false, 99}};
    EXPECT_CALL(*handler, ApproveZrcCert(CertData(), Mode::Mode1, _, _));
    EXPECT_CALL(*handler, ApproveCert(CertData(), _)).Times(2);
    tvo::ipc::arena::Buffer arena(vx_cert_approver_CertApprover_res_arena_size);
    for (const auto& row : rows)
    {
        vx_cert_approver_CertApprover_ApproveZrcCert_req request{};
        vx_cert_approver_CertApprover_ApproveZrcCert_res response{{99, 99, 99, {}}, 0, {}};
        request.base = {Riid, row.mid, sizeof(request), {}};
        request.mode = 1;
        wz_arena* const out = row.hasArena ? arena.Get() : nullptr;
        EXPECT_EQ(Dispatch(&request.base, arena.Get(), &response.base, out), row.size != 99);
        EXPECT_EQ(response.base.mid, row.mid);
        EXPECT_EQ(response.base.size, row.size);
    }
    EXPECT_THAT(log.Lines().back().message,
                AllOf(StartsWith("CertApprover stub: "), HasSubstr(" - response arena is null.")));
}

}  // namespace
