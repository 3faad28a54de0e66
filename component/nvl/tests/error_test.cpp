#include <string>
#include <utility>
#include <variant>

#include <gtest/gtest.h>

#include <component/nvl/error.h>

namespace {

using Result = std::pair<int, std::string>;

template <class Thrown>
Result Processed(const Thrown& thrown)
{
    try
    {
        throw Thrown(thrown);
    }
    catch (...)
    {
        return nvl::ProcessException();
    }
}

}  // namespace

TEST(NvlError, BecomesCodeAndText)
{
    using namespace plk::codes;
    EXPECT_EQ(Processed(nvl::ItemExists), Result(Found, "nvl: Item with given id already exists"));
    EXPECT_EQ(Processed(nvl::ItemMissing),
              Result(NotFound, "nvl: Item with given id does not exist"));
    EXPECT_EQ(Processed(nvl::PathMismatch),
              Result(NotMatched, "nvl: Path or id does not correspond to contained item"));
    EXPECT_EQ(Processed(std::bad_variant_access()),
              Result(NotMatched, "nvl: std::bad_variant_access"));
    EXPECT_EQ(Processed(std::out_of_range("text")),
              Result(UnspecifiedError, "nvl: std::exception: text"));
    EXPECT_EQ(Processed(5), Result(UnknownException, "nvl: non-std exception"));
    EXPECT_EQ(nvl::ResultOk, Result(0, ""));
    EXPECT_EQ(static_cast<int>(nvl::res::Codes::OperationTimeout), static_cast<int>(0x80000221));
}

TEST(NvlError, MovesAThrownPairOut)
{
    const std::string text = "longer than what fits into the string object itself";
    try
    {
        throw Result(7, text);
    }
    catch (const Result& caught)
    {
        EXPECT_EQ(nvl::ProcessException(), Result(7, text));
        EXPECT_EQ(caught, Result(7, ""));
    }
}
