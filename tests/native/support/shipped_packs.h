#pragma once
// The shipped language packs, read as the resource compiler embeds them (UTF-16LE with a
// byte-order mark).
#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <string>

namespace tessel::testing {

inline std::wstring ReadPack(const char* code) {
    std::ifstream in(std::string(TESSEL_SOURCE_DIR) + "/res/lang/" + code + ".txt", std::ios::binary);
    std::string bytes((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
    EXPECT_GE(bytes.size(), 2u);
    if (bytes.size() < 2) return L"";
    EXPECT_EQ(static_cast<unsigned char>(bytes[0]), 0xFF);
    EXPECT_EQ(static_cast<unsigned char>(bytes[1]), 0xFE);
    std::wstring text;
    for (size_t i = 2; i + 1 < bytes.size(); i += 2) {
        unsigned unit = static_cast<unsigned char>(bytes[i]) | static_cast<unsigned char>(bytes[i + 1]) << 8;
        if (unit >= 0xD800 && unit < 0xDC00 && i + 3 < bytes.size()) {
            unsigned low = static_cast<unsigned char>(bytes[i + 2]) | static_cast<unsigned char>(bytes[i + 3]) << 8;
            unit = 0x10000 + ((unit - 0xD800) << 10) + (low - 0xDC00);
            i += 2;
        }
        text += static_cast<wchar_t>(unit);
    }
    return text;
}

}  // namespace tessel::testing
