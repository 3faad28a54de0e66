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
    EXPECT_EQ(Processed(std::out_of_range("x")),
              Result(UnspecifiedError, "nvl: std::exception: x"));
    EXPECT_EQ(Processed(5), Result(UnknownException, "nvl: non-std exception"));
}
