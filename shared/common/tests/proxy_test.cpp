#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <platform/testing/platform_double.h>
#include <shared/common/tvo/ipc/proxy/make_proxy.h>
#include <shared/common/tvo/ipc/proxy/printf_log_message.h>
#include <shared/common/tvo/ipc/proxy/sequence.h>

namespace {

using platform::testing::Call;
using testing::Pair;
using tvoipc::api_v1::ApplicationSettings;
using tvoipc_detail::api_v1::EndpointHandle;
using tvoipc_detail::api_v1::PrintfLogMessage;
using tvoipc_detail::api_v1::ResourceProvider;

struct Message
{
    wz_message base;
    std::uint64_t value;
};

class Doubler
{
public:
    virtual std::uint64_t Double(std::uint64_t value) = 0;
    virtual ~Doubler() = default;
};

}  // namespace

template <>
class tvoipc_detail::idl_traits::Proxy<Doubler> final : public ProxyBase<Doubler>
{
public:
    using ProxyBase::ProxyBase;

    std::uint64_t Double(std::uint64_t value) override
    {
        Message request{{}, value};
        Message response{};
        Call(2, "vx_test_Doubler_Double", request, nullptr, response, nullptr, 1);
        return response.value;
    }
};

namespace {

class ProxyTest : public testing::Test
{
protected:
    void Serve(std::uint32_t riid, int result, std::uint32_t sizeWord = sizeof(Message))
    {
        platform.Serve(riid,
                       [=](auto, const wz_message* request, auto, wz_message* response, auto)
                       {
                           EXPECT_EQ(request->iid, riid);
                           EXPECT_EQ(request->mid, 2);
                           EXPECT_EQ(request->size, sizeof(Message));
                           EXPECT_EQ(response->size, 0x00800000U | sizeof(Message));
                           response->size = sizeWord;
                           reinterpret_cast<Message*>(response)->value = 42;
                           return result;
                       });
    }

    /// Connects, calls and lets go; returns what was thrown and what stands on standard error.
    std::pair<std::string, std::string> Failure()
    {
        testing::internal::CaptureStderr();
        std::string thrown;
        try
        {
            EXPECT_EQ(tvoipc::MakeProxy<Doubler>(provider, builder)->Double(21), 42U);
        }
        catch (const std::runtime_error& error)
        {
            thrown = error.what();
        }
        return {thrown, testing::internal::GetCapturedStderr()};
    }

    platform::testing::PlatformDouble platform;
    std::shared_ptr<ResourceProvider> provider =
        std::make_shared<ResourceProvider>(ApplicationSettings{});
    tvoipc::api_v1::ConnectionBuilder<tvoipc::api_v1::ConnectViaDynamicChannel> builder{"server",
                                                                                        "service"};
};

TEST_F(ProxyTest, CallsAndClosesItsConnectionAtItsEnd)
{
    Serve(5, 0);
    EXPECT_THAT(Failure(), Pair("", ""));
    builder.SetTimeout(1500);
    EXPECT_THAT(Failure(), Pair("", ""));
    const auto connects = platform.Journal(Call::CmConnect);
    EXPECT_EQ(connects.at(0).arguments, "\"server\", \"service\", 4294967295");
    EXPECT_EQ(connects.at(1).arguments, "\"server\", \"service\", 1500");
    EXPECT_EQ(platform.Count(Call::HandleClose), 2U);
}

TEST_F(ProxyTest, FailedConnectIsPrintedAndThrown)
{
    const char* const thrown = "tvoipc::MakeProxy(): error connecting to endpoint.";
    EXPECT_THAT(Failure(),
                Pair(thrown,
                     "Failed to connect to \"server\":\"service\" with rc = " +
                         std::to_string(XoObjectGone) + "\n"));
    Serve(65536, 0);
    EXPECT_THAT(
        Failure(),
        Pair(thrown, "Invalid riid for \"server\":\"service\" because 65536 > UINT16_MAX\n"));
    EndpointHandle endpoint;
    EXPECT_EQ(builder.Connect(endpoint, provider), static_cast<int>(0x90000002U));
    EXPECT_EQ(platform.Count(Call::HandleClose), 2U);
}

TEST(Sequence, PacksUpToItsLimitAndRefusesTheRest)
{
    using namespace tvoipc_detail::stdcpp_v1;
    tvo::ipc::arena::Buffer buffer(200);
    wz_arena& arena = *buffer.Get();
    tvo::ipc::arena::Reference reference{};
    const auto pack = [&](std::size_t size)
    {
        Sequence<Primitive<unsigned char, unsigned char>, 128UL>::PackArgument(
            std::vector<unsigned char>(size, 'x'), reference, arena);
    };
    pack(0);
    EXPECT_EQ(arena.current, arena.start);
    EXPECT_EQ(reference.size, 0U);
    EXPECT_THAT([&] { pack(129); }, testing::ThrowsMessage<std::length_error>("?"));
    pack(128);
    EXPECT_EQ(tvo::ipc::arena::ReadText(arena, reference), std::string(128, 'x'));
    EXPECT_THAT(
        [&] { pack(73); },
        testing::ThrowsMessage<std::runtime_error>("failed to allocate space in the arena"));
    pack(72);
    EXPECT_EQ(reference.offset, 128U);
    EXPECT_EQ(arena.current, arena.end);
}

}  // namespace
