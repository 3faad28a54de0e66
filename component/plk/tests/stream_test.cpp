#include <climits>
#include <string>

#include <gtest/gtest.h>

#include <component/plk/stream.h>
#include <component/plk/string.h>
#include <component/plk/text.h>

namespace {

using zin::stream::format_options_t;

template <class Put>
std::string Written(Put put)
{
    zin::types::string16_t target;
    const std::size_t count = put(target);
    EXPECT_EQ(count, target.size());
    return zin::text::Cast<std::string>(target);
}

}  // namespace

TEST(Stream, PutsNumbers)
{
    struct Row
    {
        format_options_t options;
        int value;
        const char* text;
    };
    const Row rows[] = {
        {{}, INT_MIN, "-2147483648"},
        {{.base = 16}, -1, "ffffffff"},
        {{.base = 1000}, 38, "?"},
        {{.width = 2, .base = 16, .fill = U'0'}, 1, "01"},
        {{.width = 6, .alignment = 1, .fill = U'*'}, -17, "***-17"},
        {{.width = 6, .alignment = 0, .fill = U'*'}, -17, "-***17"},
        {{.width = 8, .base = 16, .alignment = 0, .fill = U'0', .showBase = 1}, 10, "0x00000a"},
        {{.width = 6, .fill = 0x10000}, 1, "1"},
    };
    for (const Row& row : rows)
    {
        EXPECT_EQ(Written([&](auto& target)
                          { return zin::stream::stream_put_int(target, row.options, row.value); }),
                  row.text);
    }
}
