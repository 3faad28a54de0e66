#include <tuple>
#include <vector>

#include <gtest/gtest.h>

#include <component/nvl/path_text.h>

namespace {

using nvl::IdState;
using nvl::Path;
using nvl::Root;

const nvl::IdSpec Spec{"/ _", 65535};
const nvl::IdSpec NoLimit{"/", 0};

}  // namespace

TEST(PathText, IsReadByTheRules)
{
    const std::vector<std::tuple<const char*, IdState, Path, nvl::IdSpec>> rows{
        {"", IdState::Ok, Root, Spec},
        {"foo/3", IdState::Ok, Root / "foo" / 3UL, Spec},
        {"a12/b-c.d", IdState::Ok, Root / "a12" / "b-c.d", Spec},
        {"007/0", IdState::Ok, Root / 7UL / 0UL, Spec},
        {"18446744073709551615", IdState::Ok, Root / ~0UL, NoLimit},
        {"foo/65536", IdState::IndexTooLarge, Root, Spec},
        {"99999999999999999999", IdState::BadNumber, Root, Spec},
        {"18446744073709551616", IdState::BadNumber, Root, NoLimit},
        {"/foo", IdState::EmptyLevel, Root, Spec},
        {"foo//", IdState::EmptyLevel, Root, Spec},
        {"12a", IdState::ReservedCharacter, Root, Spec},
        {"foo/my_key", IdState::ReservedCharacter, Root, Spec},
        {"", IdState::NoSpecification, Root, {}},
    };
    for (const auto& [text, state, path, spec] : rows)
    {
        EXPECT_EQ(nvl::FromString(text, spec), std::pair(path, state)) << text;
    }
}

TEST(PathText, IsWrittenByTheRules)
{
    const std::vector<std::tuple<Path, IdState, const char*, nvl::IdSpec>> rows{
        {Root, IdState::Ok, "", Spec},
        {Root / "b-c.d" / 65535UL, IdState::Ok, "b-c.d/65535/", Spec},
        {Root / ~0UL, IdState::Ok, "18446744073709551615/", NoLimit},
        {Root / "foo" / 65536UL, IdState::IndexTooLarge, "", Spec},
        {Root / "foo" / "", IdState::EmptyName, "", Spec},
        {Root / "7", IdState::DigitAtStart, "", Spec},
        {Root / "a b", IdState::ReservedCharacter, "", Spec},
        {Root, IdState::NoSpecification, "", {}},
    };
    for (const auto& [path, state, text, spec] : rows)
    {
        EXPECT_EQ(nvl::ToString(path, spec), std::pair(std::string(text), state)) << text;
    }
}

TEST(Path, TellsNamesFromIndicesAndWhatLiesBelow)
{
    EXPECT_NE(Root / "7", Root / 7UL);
    EXPECT_TRUE(StartsWith(Root / "a" / "b", Root / "a"));
    EXPECT_TRUE(StartsWith(Root / "a", Root / "a"));
    EXPECT_FALSE(StartsWith(Root / "a", Root / "a" / "b"));
    EXPECT_FALSE(StartsWith(Root / "ab", Root / "a"));
    EXPECT_THROW((void)(Root / static_cast<const char*>(nullptr)), std::logic_error);
}
