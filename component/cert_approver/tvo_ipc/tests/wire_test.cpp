#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <component/cert_approver/tvo_ipc/type_utils.h>
#include <component/cert_approver/tvo_ipc/vx_cert_approver.h>
#include <component/cert_approver/tvo_ipc/wz_cert_approver_types.h>
#include <component/logger/testing/recording_logger.h>
#include <component/plk/exceptions.h>
#include <component/plk/process_exception.h>
#include <component/plk/result_codes.h>

namespace {

using namespace cert_approver;
using namespace cert_approver::common;
using certs::cert_service::CertData;
using tvo::ipc::arena::Buffer;
using tvo::ipc::arena::conv::FromWz;
using tvo::ipc::arena::conv::ToWz;
using tvo::logger::LogLevel;
using tvo::logger::testing::RecordingLogger;

/// A certificate whose four texts have these sizes.
CertData CertOf(std::size_t issuer, std::size_t subject, std::size_t print, std::size_t address)
{
    return {std::string(issuer, 'i'),
            std::string(subject, 's'),
            INT64_MIN,
            253'402'300'799'000'000,
            std::string(print, 'f'),
            std::string(address, 'a')};
}

TEST(CertOnTheWire, NamesTheTextThatFindsNoRoom)
{
    Buffer buffer(39);
    try
    {
        CastToWz(CertOf(10, 10, 10, 10), buffer.Get());
        ADD_FAILURE();
    }
    catch (const zin::CheckFailedException&)
    {
        EXPECT_THAT(::common::utils::ProcessException().second,
                    testing::HasSubstr("Failed to convert a cert: Failed to write address. At"));
    }
}

TEST(CertOnTheWire, StatusConversionLeavesOutWhatIsTooLongAndGoesOn)
{
    RecordingLogger log;
    Buffer buffer(vx_cert_approver_CertApprover_req_arena_size);
    bool status = true;
    const auto wz = ToWz(*buffer.Get(), CertOf(257, 5, 129, 6), status);
    EXPECT_FALSE(status);
    EXPECT_EQ(buffer.Get()->current - buffer.Get()->start, 11);
    EXPECT_EQ(CastFromWz(wz, buffer.Get()), CertOf(0, 5, 0, 6));
    EXPECT_TRUE(log.Lines().empty());
}

TEST(EnumerationsOnTheWire, KnowTwoValuesAndRefuseTheOthersWithAWarning)
{
    RecordingLogger log;
    const std::pair<unsigned char, unsigned char> rows[] = {{0, 0}, {1, 1}, {2, 77}, {255, 77}};
    for (const auto& [from, to] : rows)
    {
        const int expected = to == 77 ? plk::codes::NotFound : 0;
        unsigned char wireVerdict = 77;
        unsigned char wireMode = 77;
        Verdict verdict{77};
        Mode mode{77};
        EXPECT_EQ(VerdictToIpc(Verdict{from}, wireVerdict), expected);
        EXPECT_EQ(IpcToVerdict(from, verdict), expected);
        EXPECT_EQ(ModeToIpc(Mode{from}, wireMode), expected);
        EXPECT_EQ(IpcToMode(from, mode), expected);
        EXPECT_EQ(std::tuple(wireVerdict, verdict, wireMode, mode),
                  std::tuple(to, Verdict{to}, to, Mode{to}));
    }
    EXPECT_EQ(log.Lines().size(), 8U);
    EXPECT_TRUE(log.Contains(LogLevel::Warning,
                             "Error converting from IPC mode CertApprover mode, value: 255"));
}

}  // namespace
