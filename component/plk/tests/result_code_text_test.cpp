#include <array>
#include <cstdint>
#include <set>
#include <string_view>

#include <gtest/gtest.h>

#include <component/plk/result_code_text.h>
#include <component/plk/result_codes.h>

namespace {

constexpr std::string_view Unknown = "Unknown result code";

struct Row
{
    std::uint32_t code;
    std::string_view text;
};

constexpr auto General = std::to_array<Row>({
    {0x00000000, "No error"},
    {0x00000001, "False"},
    {0x80000001, "Interface not supported"},
    {0x80000040, "Unexpected"},
    {0x80000041, "Out of memory"},
    {0x80000042, "Not supported"},
    {0x80000043, "Not implemented"},
    {0x80000044, "Buffer too small"},
    {0x80000045, "Access denied"},
    {0x80000046, "Invalid argument"},
    {0x8000004A, "Not matched"},
    {0x8000004B, "Unspecified error"},
    {0x8000004C, "Not found"},
    {0x8000004D, "Found"},
    {0x8000004F, "Locked"},
    {0x80000050, "Not locked"},
    {0x80000051, "Operation cancelled"},
    {0x80000057, "Method not found"},
    {0x80000058, "Stack is empty"},
    {0x80000059, "Media error"},
    {0x8000005A, "Invalid signature"},
    {0x8000005B, "Invalid version"},
    {0x8000005C, "Invalid size"},
    {0x8000005D, "Invalid type"},
    {0x8000005E, "Invalid index"},
    {0x80000062, "Out of space"},
    {0x80000063, "Not ready"},
    {0x80000064, "Less than"},
    {0x80000065, "More than"},
    {0x80000066, "Prohibited"},
    {0x80000067, "Already done"},
    {0x80000068, "Need reboot"},
    {0x80000069, "Bases corrupted"},
    {0x8000006A, "Invalid state"},
    {0x8000006B, "Not initialized"},
    {0x8000006C, "Insufficient resources"},
    {0x80000071, "Invalid result"},
    {0x80000072, "Unknown exception"},
    {0x80000076, "Meta information not found"},
    {0x80000077, "Numerical type overflow"},
    {0x80000078, "File is too big"},
    {0x80000079, "Trace level ok"},
    {0x8000007A, "Trace level prohibited"},
    {0x80000100, "Class not found"},
    {0x80000101, "Settings are required"},
    {0x80000102, "Unexpected settings"},
    {0x80000103, "Wrong settings type"},
    {0x80000104, "Wrong settings revision"},
    {0x80000105, "Settings not found"},
    {0x80000106, "Object is untrusted"},
    {0x80000180, "Property not found"},
    {0x80000221, "Operation timeout"},
    {0x80000300, "Invalid symbol"},
    {0x80000301, "Non dec symbol"},
    {0x80000302, "Non hex symbol"},
    {0x80000303, "Non base64 symbol"},
    {0x80000310, "Syntax error"},
    {0x80000311, "GUID syntax error"},
    {0x80000312, "OID syntax error"},
    {0x80000313, "DateTime syntax error"},
});

constexpr auto Platform = std::to_array<Row>({
    {0x80010100, "Unspecified platform error"},
    {0x80010101, "Invalid handle"},
    {0x80010102, "File not found"},
    {0x80010103, "Path not found"},
    {0x80010104, "Sharing violation"},
    {0x80010105, "Already exists"},
    {0x80010106, "Wait abandoned"},
    {0x80010107, "Symbol not found"},
    {0x80010108, "Sxs is incorrect"},
    {0x80010109, "Invalid path name"},
    {0x80010110, "Cannot open an anonymous level security token"},
    {0x80010111, "Password is invalid"},
    {0x80010112, "Module not found"},
    {0x80010113, "System image bad signature"},
    {0x80010114, "Cloud file request aborted"},
    {0x80010115, "Memory mapping failed"},
    {0x80010116, "Network error"},
});

std::string Message(std::uint32_t code)
{
    const auto text = plk::zinx::ResultCodeMessage(static_cast<int>(code));
    return {text.data(), text.size()};
}

/// Every code of a range that is not in the table must be unknown.
template <class Table>
void ExpectRange(const Table& table, std::uint32_t first, std::uint32_t last)
{
    std::set<std::uint32_t> known;
    for (const Row& row : table)
    {
        SCOPED_TRACE(row.code);
        EXPECT_EQ(Message(row.code), row.text);
        known.insert(row.code);
    }
    for (std::uint32_t code = first; code <= last; ++code)
    {
        if (!known.contains(code))
        {
            EXPECT_EQ(Message(code), Unknown) << code;
        }
    }
}

}  // namespace

TEST(ResultCodeText, KnowsTheGeneralCodesAndNoOthers)
{
    ExpectRange(General, 0x80000000, 0x80000400);
}

TEST(ResultCodeText, KnowsThePlatformCodesAndNoOthers)
{
    ExpectRange(Platform, 0x800100F0, 0x80010130);
}

TEST(ResultCodeText, TakesOnlyGeneralCodesAsGeneral)
{
    const auto text = zin::rtl_result_code_message(plk::codes::NetworkError);
    EXPECT_EQ(std::string(text.data(), text.size()), Unknown);
}

TEST(ResultCodeText, ShowsTextAndDigits)
{
    struct Case
    {
        std::uint32_t code;
        std::string_view text;
    };
    const Case cases[] = {
        {0x00000000, "No error = 0x00"},
        {0x00000001, "False = 0x01"},
        {0x00000002, "Unknown result code = 0x02"},
        {0x00000123, "Unknown result code = 0x123"},
        {0x8000004C, "Not found = 0x8000004c"},
        {0x80010116, "Network error = 0x80010116"},
        {0x00010100, "Unknown result code = 0x10100"},
        {0x80020100, "Unknown result code = 0x80020100"},
        {0x90000013, "Unknown result code = 0x90000013"},
        {0xFFFFFFFF, "Unknown result code = 0xffffffff"},
    };
    for (const Case& row : cases)
    {
        EXPECT_EQ(plk::zinx::ResultCodeText(static_cast<int>(row.code)), row.text);
    }
}
