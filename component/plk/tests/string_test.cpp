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
        blocks += isExhausted ? 0 : 1;
        return isExhausted ? nullptr : std::malloc(bytes);
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

class StringTest : public ::testing::Test
{
protected:
    string16_t Make(const char16_t* text)
    {
        return string16_t(text, zin::abi_v1_allocator(&m_allocator));
    }

    CountingAllocator m_allocator;
};

void ExpectText(const string16_t& text, const std::string& expected)
{
    EXPECT_EQ(zin::text::Cast<std::string>(text), expected);
    EXPECT_EQ(text.data()[text.size()], u'\0');
}

static_assert(sizeof(string16_t) == 48);

}  // namespace

TEST_F(StringTest, LeavesTheObjectWithTheEighthCharacter)
{
    string16_t text = Make(u"1234567");
    EXPECT_EQ(text.capacity(), 7U);
    EXPECT_EQ(m_allocator.blocks, 0);
    text.append_by_traits(u"8", 1);
    EXPECT_EQ(text.capacity(), 14U);
    EXPECT_EQ(m_allocator.lastSize, 30U);
    text.append_by_traits(text.data() + 1, 7);
    EXPECT_EQ(text.capacity(), 28U);
    ExpectText(text, "123456782345678");
    text.reserve_extra(nullptr, 50);
    EXPECT_EQ(text.capacity(), 65U) << "more than the double takes what it needs";
    EXPECT_EQ(m_allocator.blocks, 1);
}

TEST_F(StringTest, CopiesAndMovesWithItsAllocator)
{
    for (const char16_t* const content : {u"1234567", u"12345678", u"12345678901234567890"})
    {
        string16_t text = Make(content);
        string16_t copy = text;
        EXPECT_EQ(copy.capacity(), text.size() == 8 ? 14U : text.size());
        EXPECT_EQ(m_allocator.references, 2);
        const string16_t moved = std::move(text);
        EXPECT_TRUE(moved == copy);
        EXPECT_EQ(m_allocator.references, 2);
        ExpectText(text, "");  // NOLINT(bugprone-use-after-move): what a move leaves is defined
        EXPECT_EQ(text.capacity(), 7U);
        copy = Make(u"other");
        ExpectText(copy, "other");
    }
    EXPECT_EQ(m_allocator.references, 0);
    EXPECT_EQ(m_allocator.blocks, 0);
}

TEST_F(StringTest, StaysWholeWhenItCannotGrow)
{
    string16_t text = Make(u"0123456789");
    for (const std::size_t extra : {std::size_t{0x7FFFFFFFFFFFFFF5}, SIZE_MAX})
    {
        EXPECT_THROW(text.reserve_extra(nullptr, extra), std::length_error);
    }
    m_allocator.isExhausted = true;
    EXPECT_THROW(text.reserve_extra(nullptr, 0x7FFFFFFFFFFFFFF4), std::bad_alloc);
    EXPECT_THROW(text.append_by_traits(text.data(), 10), std::bad_alloc);
    EXPECT_THROW(string16_t{text}, std::bad_alloc);
    ExpectText(text, "0123456789");
}
