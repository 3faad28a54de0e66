#include <cstring>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <component/cert_approver/tvo_ipc/cert_approver_stub.h>
#include <component/cert_approver/tvo_ipc/wz_cert_approver_types.h>
#include <component/logger/testing/recording_logger.h>
#include <component/plk/exceptions.h>

#include "fake_cert_approver.h"

namespace {

using namespace cert_approver;
using namespace cert_approver::stub;
using certs::cert_service::CertData;
using tvo::ipc::arena::Buffer;
using tvo::ipc::arena::InvalidReference;
using tvo::logger::LogLevel;

constexpr int Failed = -22;

class StubTest : public ::testing::Test
{
protected:
    StubTest()
    {
        handler->answer = [this](const CertData& certData, Verdict& answer)
        {
            EXPECT_EQ(certData, cert);
            ++asked;
            answer = verdict;
            return code;
        };
        request.cert = plainRequest.cert = common::CastToWz(cert, requestArena.Get());
        response.verdict = plainResponse.verdict = 9;
    }

    int ApproveZrcCert()
    {
        return vx_cert_approver_CertApprover_ApproveZrcCert_fn(
            &stub, &request, requestArena.Get(), &response, responseArena.Get());
    }

    int ApproveCert()
    {
        return vx_cert_approver_CertApprover_ApproveCert_fn(
            &stub, &plainRequest, requestArena.Get(), &plainResponse, nullptr);
    }

    const CertData cert{"issuer", "subject", 1, 2, "fingerprint", "address"};
    Verdict verdict = Verdict::Approve;
    int code = 0;
    int asked = 0;
    tvo::logger::testing::RecordingLogger log;
    std::shared_ptr<cert_approver::testing::FakeCertApprover> handler =
        std::make_shared<cert_approver::testing::FakeCertApprover>();
    CertApproverStub stub{handler};
    Buffer requestArena{vx_cert_approver_CertApprover_req_arena_size};
    Buffer responseArena{vx_cert_approver_CertApprover_res_arena_size};
    vx_cert_approver_CertApprover_ApproveZrcCert_req request{};
    vx_cert_approver_CertApprover_ApproveZrcCert_res response{};
    vx_cert_approver_CertApprover_ApproveCert_req plainRequest{};
    vx_cert_approver_CertApprover_ApproveCert_res plainResponse{};
};

TEST_F(StubTest, AsksTheHandlerAndAnswersItsVerdict)
{
    request.mode = 1;
    EXPECT_EQ(ApproveCert(), 0);
    EXPECT_EQ(ApproveZrcCert(), 0);
    EXPECT_EQ(plainResponse.verdict, 1);
    EXPECT_EQ(response.verdict, 1);
    EXPECT_EQ(handler->mode, Mode::Mode1);
    EXPECT_TRUE(log.Lines().empty());
}

TEST_F(StubTest, FailingHandlerReadsAsARefusal)
{
    handler->answer = [](const CertData&, Verdict&)
    {
        return -5;
    };
    EXPECT_EQ(ApproveCert(), 0);
    EXPECT_EQ(ApproveZrcCert(), 0);
    EXPECT_EQ(plainResponse.verdict, 0);
    EXPECT_EQ(response.verdict, 0);
    EXPECT_TRUE(log.Contains(LogLevel::Error, "CertApprover stub: Failed  to call ApproveCert"));
    EXPECT_TRUE(log.Contains(LogLevel::Error, "CertApprover stub: Failed  to call ApproveZrcCert"));
}

TEST_F(StubTest, BadModeAsksNobodyAndBadVerdictIsNotSent)
{
    request.mode = 2;
    EXPECT_EQ(ApproveZrcCert(), Failed);
    EXPECT_EQ(asked, 0);
    request.mode = 0;
    verdict = Verdict{2};
    EXPECT_EQ(ApproveZrcCert(), Failed);
    EXPECT_EQ(ApproveCert(), Failed);
    EXPECT_EQ(response.verdict, 9);
    EXPECT_EQ(plainResponse.verdict, 9);
}

TEST_F(StubTest, ReturnsTheTextWhereItFits)
{
    for (const std::uint32_t size : {0U, 128U, 129U})
    {
        responseArena.Reset();
        handler->result = std::string(size, 't');
        EXPECT_EQ(ApproveZrcCert(), 0);
        EXPECT_EQ(response.result.offset, size <= 128 ? 0 : InvalidReference);
        EXPECT_EQ(response.result.size, size <= 128 ? size : InvalidReference);
    }
}

TEST_F(StubTest, RefusesNullArgumentsByName)
{
    EXPECT_THROW(CreateCertApproverComponent(nullptr), zin::InvalidArgumentException);
    EXPECT_EQ(vx_cert_approver_CertApprover_ApproveZrcCert_fn(
                  &stub, &request, requestArena.Get(), &response, nullptr),
              Failed);
    EXPECT_THAT(log.Lines().back().message,
                ::testing::AllOf(::testing::StartsWith("CertApprover stub: "),
                                 ::testing::HasSubstr(" - response arena is null.")));
    EXPECT_EQ(asked, 0);
}

TEST_F(StubTest, DispatchFindsTheOperationByItsNumber)
{
    const auto component = CreateCertApproverComponent(handler);
    vx_cert_approver_CertApprover_component_req any{request};
    struct
    {
        std::uint16_t iid, mid;
        bool served;
        wz_message reply;
    } const rows[] = {
        {1, 0, true, {1, 0, 40, {}}},
        {1, 1, true, {1, 1, 32, {}}},
        {1, 65535, false, {1, 65535, 99, {}}},
        {2, 0, false, {99, 99, 99, {}}},
    };
    for (const auto& row : rows)
    {
        any.approveZrcCert.base = {row.iid, row.mid, sizeof(any), {}};
        vx_cert_approver_CertApprover_component_res answer{{{99, 99, 99, {}}, 0, {}}};
        wz_message& reply = answer.approveZrcCert.base;
        EXPECT_EQ(vx_cert_approver_CertApprover_component_dispatch(component->GetComponent().get(),
                                                                   1,
                                                                   &any.approveZrcCert.base,
                                                                   requestArena.Get(),
                                                                   &reply,
                                                                   responseArena.Get()),
                  row.served);
        EXPECT_EQ(std::memcmp(&reply, &row.reply, sizeof(reply)), 0) << row.iid << ' ' << row.mid;
    }
    EXPECT_EQ(asked, 2);
}

}  // namespace
