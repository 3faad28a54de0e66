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

template <class Throw>
std::pair<int, std::string> Processed(Throw throwIt)
{
    try
    {
        throwIt();
    }
    catch (...)
    {
        const auto shared = ::common::utils::ProcessException();
        EXPECT_EQ(plk::utils::ProcessException(), shared);
        return shared;
    }
    return {};
}

using Result = std::pair<int, std::string>;

}  // namespace

TEST(Exceptions, ShowClassTextAndSite)
{
    const zin::CheckFailedException check = zin::CheckFailedException("a/b.cpp", 19)
                                            << "Setter " << std::string("is") << ' ' << -5 << 7U;
    EXPECT_EQ(Narrow(check.DisplayText()), "CheckFailedException - Setter is -57. At a/b.cpp(19) ");
    EXPECT_EQ(Narrow(zin::CheckFailedException("f", 1).DisplayText()),
              "CheckFailedException - . At f(1) ");
}

TEST(Exceptions, ShowResultCodes)
{
    const zin::CheckResultFailedException noText("f", 1, plk::codes::UnspecifiedError);
    EXPECT_EQ(Narrow(noText.Text()), "0x8000004b (Unspecified error)");
    EXPECT_EQ(
        Narrow((zin::CheckResultFailedException("f", 1, plk::codes::NotFound) << "Cannot read")
                   .DisplayText()),
        "CheckResultFailedException - Cannot read: 0x8000004c (Not found). At f(1) ");
    EXPECT_EQ(Narrow(zin::ResultCodeException("f", 1, plk::codes::NetworkError).Text()),
              "0x80010116 (Network error)");
    EXPECT_EQ(Narrow(zin::ResultCodeException("f", 1, 2).Text()),
              "0x00000002 (Unknown result code)");
    EXPECT_EQ(Narrow(zin::InvalidArgumentException("f", 1).DisplayText()),
              "InvalidArgumentException - 0x00000000 (No error). At f(1) ");
}

TEST(Exceptions, ThrowAsTheirOwnClass)
{
    const zin::CheckResultFailedException original("f", 1, plk::codes::NotReady);
    const zin::Exception& base = original << "text";
    EXPECT_THROW(base.Throw(), zin::CheckResultFailedException);
    try
    {
        base.Clone()->Throw();
    }
    catch (const zin::ResultCodeException& copy)
    {
        EXPECT_EQ(copy.Code(), plk::codes::NotReady);
        EXPECT_EQ(Narrow(copy.DisplayText()), Narrow(original.DisplayText()));
    }
}

TEST(Exceptions, CopyTheExceptionInside)
{
    auto inner = std::make_unique<zin::CheckFailedException>("inner.cpp", 1);
    *inner << "cause";
    const WithInner original(std::move(inner));
    const auto copy = original.Clone();
    ASSERT_NE(copy->Inner(), nullptr);
    EXPECT_NE(copy->Inner(), original.Inner());
    EXPECT_EQ(Narrow(copy->Inner()->Text()), "cause");
    EXPECT_STREQ(copy->what(), std::exception().what());
}

TEST(Exceptions, ChecksThrowOnFailureOnly)
{
    const auto checked = [](int code)
    {
        int evaluated = 0;
        ZIN_CHECK_RESULT((++evaluated, code), "code " << evaluated);
    };
    EXPECT_NO_THROW(checked(0));
    EXPECT_NO_THROW(checked(plk::codes::False));
    EXPECT_NE(Processed([&] { checked(plk::codes::Locked); }).second.find("- code 1: 0x8000004f"),
              std::string::npos);
    EXPECT_NO_THROW(ZIN_CHECK(true, ""));
    EXPECT_THROW(ZIN_CHECK(false, "a" << 1), zin::CheckFailedException);
}

TEST(Exceptions, BecomeCodeAndText)
{
    using namespace plk::codes;
    EXPECT_EQ(Processed([] { throw zin::CheckResultFailedException("f", 3, Found) << "x"; }),
              Result(Found, "CheckResultFailedException - x: 0x8000004d (Found). At f(3) "));
    EXPECT_EQ(Processed([] { throw zin::InvalidArgumentException("f", 3); }).first, 0);
    EXPECT_EQ(Processed([] { throw zin::CheckFailedException("f", 3) << "x"; }),
              Result(UnspecifiedError, "CheckFailedException - x. At f(3) "));
    EXPECT_EQ(Processed([] { throw std::invalid_argument("a"); }), Result(InvalidArgument, "a"));
    EXPECT_EQ(Processed([] { throw std::length_error("b"); }), Result(InvalidSize, "b"));
    EXPECT_EQ(Processed([] { throw std::out_of_range("c"); }), Result(InvalidIndex, "c"));
    EXPECT_EQ(Processed([] { throw std::runtime_error("d"); }),
              Result(UnspecifiedError, "std::exception: d"));
    EXPECT_EQ(Processed([] { throw 5; }), Result(UnspecifiedError, "non-std exception"));
}
