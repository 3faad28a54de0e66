#include <gtest/gtest.h>

#include <component/nvl/for_each.h>
#include <component/nvl/path_text.h>

namespace {

using nvl::for_each::Option;
using Value = nvl::TValue<nvl::aux::impl::UValueTag>;

// A small number that is not wrapped has no kind of its own.
static_assert(!std::is_convertible_v<short, nvl_sm::BanInt<short>>);

using Map = std::map<std::string, Value, std::less<void>>;

Value MakeTree()
{
    const Value::Variant number(5);
    EXPECT_EQ(number.index(), nvl::kind::Int64);
    Value map{Map{{"b", {true}}, {"a", {number}}}};
    return {std::vector<Value>{Value{true}, map, Value{}}};
}

/// @returns the result of a walk whose second visit answers so, and the paths that it came to
std::pair<Option, std::string> Walk(const Value& tree, Option secondAnswer)
{
    std::string visited;
    int visits = 0;
    const auto visit = [&](const nvl::Path& path, const Value& /*value*/)
    {
        visited += nvl::ToString(path, nvl::IdSpec{"/", 0}).first + " ";
        return ++visits == 2 ? secondAnswer : Option::Next;
    };
    const Option result = nvl::ForEach(nvl::Root / "x", tree, visit);
    return {result, visited};
}

}  // namespace

TEST(ForEach, VisitsNodesBeforeChildrenUntilToldToStop)
{
    const std::string all = "x/ x/0/ x/1/ x/1/a/ x/1/b/ x/2/ ";
    for (const Option answer : {Option::Next, Option::Noted, static_cast<Option>(9)})
    {
        EXPECT_EQ(Walk(MakeTree(), answer), std::pair(answer, all));
    }
    for (const Option answer : {Option::Stop, Option::Invalid})
    {
        EXPECT_EQ(Walk(MakeTree(), answer), std::pair(answer, std::string("x/ x/0/ ")));
    }
}
