#include <cstdint>
#include <cstdlib>
#include <string>
#include <utility>

#include <gtest/gtest.h>

#include <component/plk/string.h>
#include <component/plk/text.h>

namespace {

using zin::types::string16_t;

class CountingAllocator final : public zin::IAllocator
{
public:
    void AddRef() noexcept override
    {
        ++references;
    }
    void Release() noexcept override
    {
        --references;
    }
    void Reserved1() noexcept override {}
    void* Allocate(std::size_t bytes) noexcept override
    {
        lastSize = bytes;
        void* const block = isExhausted ? nullptr : std::malloc(bytes);
        blocks += block != nullptr ? 1 : 0;
        return block;
    }
    void Reserved2() noexcept override {}
    void Free(void* block) noexcept override
    {
        std::free(block);
        --blocks;
    }

    int references = 0;
    int blocks = 0;
    std::size_t lastSize = 0;
    bool isExhausted = false;
};

string16_t Make(const std::string& text, zin::IAllocator* allocator = nullptr)
{
    string16_t result{zin::abi_v1_allocator(allocator)};
    for (const char byte : text)
    {
        const auto unit = static_cast<char16_t>(byte);
        result.append_by_traits(&unit, 1);
    }
    return result;
}

std::string Narrow(const string16_t& text)
{
    EXPECT_EQ(text.data()[text.size()], u'\0');
    return zin::text::Cast<std::string>(text);
}

}  // namespace

static_assert(sizeof(string16_t) == 48);

TEST(String, LeavesTheObjectWithTheEighthCharacter)
{
    CountingAllocator allocator;
    string16_t text = Make("1234567", &allocator);
    EXPECT_EQ(text.capacity(), 7U);
    EXPECT_EQ(allocator.blocks, 0);

    text.append_by_traits(u"8", 1);
    EXPECT_EQ(text.capacity(), 14U);
    EXPECT_EQ(allocator.lastSize, 30U);
    EXPECT_EQ(Narrow(text), "12345678");

    text.append_by_traits(u"9012345", 7);
    EXPECT_EQ(text.capacity(), 28U);
    text.append_by_traits(string16_t(Make(std::string(50, 'x'))).data(), 50);
    EXPECT_EQ(text.capacity(), 65U) << "text longer than the double takes what it needs";
    EXPECT_EQ(allocator.blocks, 1);
}

TEST(String, AppendsAPartOfItself)
{
    string16_t text = Make("0123456789abcd");
    text.append_by_traits(text.data() + 2, 10);
    EXPECT_EQ(Narrow(text), "0123456789abcd23456789ab");
}

TEST(String, GivesTheOldBlockToTheGuard)
{
    CountingAllocator allocator;
    string16_t text = Make("0123456789", &allocator);
    const char16_t* const before = text.data();
    {
        zin::types::auto_delete<char16_t, zin::abi_v1_allocator> guard(text.allocator());
        text.reserve_extra(&guard, 4);
        EXPECT_EQ(guard.get(), nullptr) << "it fits, so nothing moves";
        text.reserve_extra(&guard, 100);
        EXPECT_EQ(guard.get(), before);
        text.reserve_extra(&guard, 1000);
        EXPECT_EQ(allocator.blocks, 2) << "the guard freed what it held before";
    }
    EXPECT_EQ(allocator.blocks, 1);
    EXPECT_EQ(Narrow(text), "0123456789");
}

TEST(String, CopySharesTheAllocatorAndKeepsRoomForFourteen)
{
    CountingAllocator allocator;
    {
        const string16_t small = Make("1234567", &allocator);
        const string16_t big = Make("12345678901234567890", &allocator);
        const string16_t smallCopy = small;
        string16_t bigCopy = big;
        EXPECT_EQ(smallCopy.capacity(), 7U);
        EXPECT_EQ(bigCopy.capacity(), 20U);
        EXPECT_EQ(string16_t(Make("12345678", &allocator)).capacity(), 14U);
        EXPECT_EQ(allocator.references, 4);
        EXPECT_TRUE(bigCopy == big);
        bigCopy = small;
        EXPECT_EQ(Narrow(bigCopy), "1234567");
    }
    EXPECT_EQ(allocator.references, 0);
    EXPECT_EQ(allocator.blocks, 0);
}

TEST(String, MoveTakesBlockAndAllocatorAndLeavesAnEmptyString)
{
    CountingAllocator allocator;
    for (const char* const content : {"short", "longer than the object"})
    {
        string16_t from = Make(content, &allocator);
        const string16_t to = std::move(from);
        EXPECT_EQ(Narrow(to), content);
        EXPECT_EQ(to.allocator().get(), &allocator);
        EXPECT_TRUE(
            from.empty());  // NOLINT(bugprone-use-after-move): what a move leaves is defined
        EXPECT_EQ(from.capacity(), 7U);
        EXPECT_EQ(from.allocator().get(), nullptr);
    }
    EXPECT_EQ(allocator.blocks, 0);
}

TEST(String, WithoutBlockIsEmptyAndGrows)
{
    const string16_t none{zin::types::without_block_t()};
    EXPECT_EQ(none.capacity(), 0U);
    EXPECT_TRUE(none.empty());

    string16_t copy = none;
    string16_t moved = string16_t(zin::types::without_block_t());
    for (string16_t* const text : {&copy, &moved})
    {
        text->append_by_traits(u"abc", 3);
        EXPECT_EQ(Narrow(*text), "abc");
        EXPECT_EQ(text->capacity(), 7U);
    }
}

TEST(String, RefusesImpossibleSizes)
{
    string16_t text = Make("abc");
    for (const std::size_t extra : {std::size_t{0x7FFFFFFFFFFFFFFC}, SIZE_MAX})
    {
        try
        {
            text.reserve_extra(nullptr, extra);
            ADD_FAILURE() << extra;
        }
        catch (const std::length_error& error)
        {
            EXPECT_STREQ(error.what(), "zin::basic_string_t::reserve_extra()");
        }
    }
    EXPECT_EQ(Narrow(text), "abc");
}

TEST(String, StaysWholeWithoutMemory)
{
    CountingAllocator allocator;
    string16_t text = Make("0123456789", &allocator);
    allocator.isExhausted = true;
    EXPECT_THROW(text.append_by_traits(text.data(), 10), std::bad_alloc);
    EXPECT_THROW(string16_t{text}, std::bad_alloc);
    EXPECT_EQ(Narrow(text), "0123456789");
}
