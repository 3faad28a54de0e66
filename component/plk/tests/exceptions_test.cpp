#include <memory>
#include <stdexcept>
#include <string>
#include <utility>

#include <gtest/gtest.h>

#include <component/plk/exceptions.h>
#include <component/plk/process_exception.h>
#include <component/plk/result_codes.h>
#include <component/plk/text.h>

namespace {

std::string Narrow(const zin::Exception::String& text)
{
    return zin::text::Cast<std::string>(text);
}

class WithInner final : public zin::ExceptionBase<WithInner, zin::Exception>
{
public:
    explicit WithInner(std::unique_ptr<zin::Exception> inner) : ExceptionBase("outer.cpp", 2)
    {
        SetInner(std::move(inner));
    }
};

using Result = std::pair<int, std::string>;

template <class Throw>
Result Processed(Throw throwIt)
{
    try
    {
        throwIt();
    }
    catch (...)
    {
        const Result result = ::common::utils::ProcessException();
        EXPECT_EQ(plk::utils::ProcessException(), result);
        return result;
    }
    return {};
}

}  // namespace

TEST(Exceptions, ShowResultCodes)
{
    using zin::ResultCodeException;
    EXPECT_EQ(Narrow(ResultCodeException("f", 1, plk::codes::UnspecifiedError).Text()),
              "0x8000004b (Unspecified error)");
    EXPECT_EQ(Narrow(ResultCodeException("f", 1, plk::codes::NetworkError).Text()),
              "0x80010116 (Network error)");
    EXPECT_EQ(Narrow(ResultCodeException("f", 1, 2).Text()), "0x00000002 (Unknown result code)");
}

TEST(Exceptions, CopyThemselvesAndTheExceptionInside)
{
    auto inner = std::make_unique<zin::CheckResultFailedException>("inner.cpp", 1, 5);
    *inner << "cause";
    const WithInner original(std::move(inner));
    const auto copy = original.Clone();
    EXPECT_NE(copy->Inner(), original.Inner());
    EXPECT_EQ(Narrow(copy->Inner()->Text()), "cause: 0x00000005 (Unknown result code)");
    EXPECT_THROW(copy->Throw(), WithInner);
    EXPECT_THROW(copy->Inner()->Throw(), zin::CheckResultFailedException);
}

TEST(Exceptions, ChecksThrowOnFailureOnly)
{
    const auto checked = [](int code)
    {
        int evaluated = 0;
        ZIN_CHECK_RESULT((++evaluated, code), "code " << evaluated);
        ZIN_CHECK(code != 1, std::string("one") << ' ' << -5 << 7U);
    };
    EXPECT_NO_THROW(checked(0));
    EXPECT_NE(Processed([&] { checked(plk::codes::Locked); }).second.find("- code 1: 0x8000004f"),
              std::string::npos);
    EXPECT_NE(Processed([&] { checked(1); }).second.find("exceptions_test.cpp("),
              std::string::npos);
    EXPECT_NE(Processed([&] { checked(1); }).second.find(" - one -57. At "), std::string::npos);
}

TEST(Exceptions, BecomeCodeAndText)
{
    using namespace plk::codes;
    EXPECT_EQ(Processed([] { throw zin::CheckResultFailedException("f", 3, Found) << "x"; }),
              Result(Found, "CheckResultFailedException - x: 0x8000004d (Found). At f(3) "));
    EXPECT_EQ(Processed([] { throw zin::InvalidArgumentException("f", 3); }),
              Result(0, "InvalidArgumentException - 0x00000000 (No error). At f(3) "));
    EXPECT_EQ(Processed([] { throw zin::CheckFailedException("f", 3); }),
              Result(UnspecifiedError, "CheckFailedException - . At f(3) "));
    EXPECT_EQ(Processed([] { throw std::invalid_argument("a"); }), Result(InvalidArgument, "a"));
    EXPECT_EQ(Processed([] { throw std::length_error("b"); }), Result(InvalidSize, "b"));
    EXPECT_EQ(Processed([] { throw std::out_of_range("c"); }), Result(InvalidIndex, "c"));
    EXPECT_EQ(Processed([] { throw std::runtime_error("d"); }),
              Result(UnspecifiedError, "std::exception: d"));
    EXPECT_EQ(Processed([] { throw 5; }), Result(UnspecifiedError, "non-std exception"));
}
