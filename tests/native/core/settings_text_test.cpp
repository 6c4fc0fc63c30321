#include "core/settings_text.h"

#include <gtest/gtest.h>

#include <string>

namespace tessel {

TEST(SettingsText, TextInEitherFormIsReadableAndAnythingElseIsSetAside) {
    using namespace std::string_literals;
    EXPECT_TRUE(SettingsTextReadable(""));
    EXPECT_TRUE(SettingsTextReadable("[Start]\r\nshow_tabs=1\r\n"));
    EXPECT_TRUE(SettingsTextReadable("\xFF\xFE[\0S\0]\0"s));
    EXPECT_TRUE(SettingsTextReadable("[Start]\r\nname=caf\xC3\xA9\r\n")) << "8-bit text of any code page";

    EXPECT_FALSE(SettingsTextReadable("\x00\x01\x02[Start]"s)) << "binary";
    EXPECT_FALSE(SettingsTextReadable("\xFF\xFE[\0S\0]"s)) << "a UTF-16 file cut in a character";
    EXPECT_FALSE(SettingsTextReadable("\xFF\xFE[\0\0\0S\0"s)) << "zeros inside";
    EXPECT_FALSE(SettingsTextReadable("\xFE\xFF\0[\0S"s)) << "big-endian";
    EXPECT_FALSE(SettingsTextReadable("[\0S\0t\0"s)) << "UTF-16 without its mark";
}

}  // namespace tessel
