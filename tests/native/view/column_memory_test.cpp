#include "view/column_memory.h"

#include <gtest/gtest.h>


namespace tessel {
namespace {

TEST(ColumnMemory, EncodesHexPairsCheckValueAndCount) {
    EXPECT_EQ(EncodeColumnValue({0x01, 0x02}), L"%01%02|CODEMODE1|4|2");
    EXPECT_EQ(EncodeColumnValue({}), L"|CODEMODE1|0|0");
    // 0xFF counts as -1: h = 0 * -1 = 0, then h = -1; 0xAB is -85: h = -1 * -85 = 85, then 0.
    EXPECT_EQ(EncodeColumnValue({0xFF}), L"%FF|CODEMODE1|-1|1");
    EXPECT_EQ(EncodeColumnValue({0xFF, 0xAB}), L"%FF%AB|CODEMODE1|0|2");
}

TEST(ColumnMemory, CheckValueWrapsModulo2To32) {
    std::vector<uint8_t> bytes(64, 0x7F);
    uint32_t h = 0;
    for (uint8_t b : bytes) h = h * b + b;
    EXPECT_EQ(ColumnCheckValue(bytes.data(), bytes.size()), static_cast<int32_t>(h));
}

TEST(ColumnMemory, RoundTripAndTheCutAt4096Bytes) {
    std::vector<uint8_t> bytes(5000);
    for (size_t i = 0; i < bytes.size(); ++i) bytes[i] = static_cast<uint8_t>(i * 37);
    std::vector<uint8_t> decoded;
    ASSERT_TRUE(DecodeColumnValue(EncodeColumnValue(bytes), decoded));
    ASSERT_EQ(decoded.size(), 4096u);
    EXPECT_TRUE(std::equal(decoded.begin(), decoded.end(), bytes.begin()));
    ASSERT_TRUE(DecodeColumnValue(L"%0a%Ff|CODEMODE1|-11|2", decoded)) << "lower-case digits decode too";
    EXPECT_EQ(decoded, (std::vector<uint8_t>{0x0A, 0xFF}));
}

TEST(ColumnMemory, TamperedAndMalformedValuesAreSkipped) {
    std::vector<uint8_t> kept{9};
    std::vector<uint8_t> out = kept;
    const wchar_t* bad[] = {
        L"%01%03|CODEMODE1|4|2",  // a byte changed by hand
        L"%01%02|CODEMODE1|5|2",  // check value changed
        L"%01%02|CODEMODE1|4|3",  // count changed
        L"%01%02|CODEMODE2|4|2",  L"%01%02|CODEMODE1|4",  L"%01%02", L"",
        L"%0G%02|CODEMODE1|4|2",  L"%01%0|CODEMODE1|4|2", L"x01%02|CODEMODE1|4|2",
        L"%01%02|CODEMODE1||2",   L"%01%02|CODEMODE1|4|x", L"|||",
        L"%01%02|CODEMODE1|99999999999999999999|2",
    };
    for (const wchar_t* text : bad) {
        EXPECT_FALSE(DecodeColumnValue(text, out)) << text;
        EXPECT_EQ(out, kept) << "a failed decode leaves the output alone";
    }
}

// Random values are the fuzz target's (fuzz/column_value_fuzz.cpp).
TEST(ColumnMemory, AnOversizedValueIsRefused) {
    std::vector<uint8_t> out;
    std::wstring huge(3 * 5000, L'%');
    EXPECT_FALSE(DecodeColumnValue(huge + L"|CODEMODE1|0|5000", out));
}

TEST(ColumnMemory, KeysPerKindOfFolder) {
    EXPECT_EQ(ColumnKey(L"C:\\Users", 5), L"Spatlen_5");
    EXPECT_EQ(ColumnKey(L"D:\\Other", 5), L"Spatlen_5") << "same columns, same memory";
    EXPECT_EQ(ColumnKey(L"::{26EE0668-A00A-44D7-9371-BEB064C98683}", 4),
              L"Spatlen_::{26EE0668-A00A-44D7-9371-BEB064C98683}");
    EXPECT_EQ(ColumnKey(std::wstring(1, L'\x01') + L"x", 3), std::wstring(L"Spatlen_\x01x"));
    EXPECT_EQ(ColumnKey(L"FTP://server/dir", 0), L"Spatlen_FTP");
    EXPECT_EQ(ColumnKey(L"C:\\NoColumns", 0), L"");
    EXPECT_EQ(ColumnKey(L"", 0), L"");
    EXPECT_EQ(ColumnSectionName(10, 0, L"TView1"), L"Column_OS_10.0_TView1");
}

}  // namespace
}  // namespace tessel
