#include <stdexcept>
#include <string>
#include <utility>

#include <gtest/gtest.h>

#include <component/plk/exceptions.h>
#include <component/plk/process_exception.h>
#include <component/plk/result_codes.h>

namespace {

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
