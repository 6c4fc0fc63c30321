#include "core/profile_values.h"

#include <gtest/gtest.h>

#include <climits>

namespace tessel {

TEST(ProfileValues, LeadingIntegerConversionLikeTheProfileFunctions) {
    EXPECT_EQ(ParseLeadingInt(L"42"), 42);
    EXPECT_EQ(ParseLeadingInt(L"  -17xyz"), -17);
    EXPECT_EQ(ParseLeadingInt(L"+8"), 8);
    EXPECT_EQ(ParseLeadingInt(L"abc"), 0);
    EXPECT_EQ(ParseLeadingInt(L""), 0);
    EXPECT_EQ(ParseLeadingInt(L"-"), 0);
    EXPECT_EQ(ParseLeadingInt(L"99999999999999999999"), INT_MAX);
    EXPECT_EQ(ParseLeadingInt(L"-99999999999999999999"), INT_MIN);
    EXPECT_EQ(ParseLeadingInt(L"-2147483648"), INT_MIN);
}

TEST(ProfileValues, ClampOnlyWhenNeitherBoundIsMinusOne) {
    EXPECT_EQ(ClampSetting(7, 0, 3), 3);
    EXPECT_EQ(ClampSetting(-4, 0, 3), 0);
    EXPECT_EQ(ClampSetting(7, -1, 3), 7);
    EXPECT_EQ(ClampSetting(7, 0, -1), 7);
    EXPECT_EQ(ClampSetting(2, 0, 3), 2);
}

TEST(ProfileValues, RectanglesParseFieldByFieldAndReportMissingFields) {
    RectI r;
    EXPECT_TRUE(ParseRect(L"10;20;300;-40", r));
    EXPECT_EQ(r, (RectI{10, 20, 300, -40}));
    EXPECT_EQ(FormatRect(r), L"10;20;300;-40");

    RectI partial{1, 2, 3, 4};
    EXPECT_FALSE(ParseRect(L"7;8", partial));
    EXPECT_EQ(partial, (RectI{7, 8, 3, 4})) << "fields after the missing one stay as they were";

    RectI gap{1, 2, 3, 4};
    EXPECT_FALSE(ParseRect(L"5;;6;7", gap));
    EXPECT_EQ(gap, (RectI{5, 2, 3, 4}));

    RectI empty{1, 2, 3, 4};
    EXPECT_FALSE(ParseRect(L"", empty));
    EXPECT_EQ(empty, (RectI{1, 2, 3, 4}));
}

TEST(ProfileValues, ConfigurationNameFromIniWord) {
    EXPECT_EQ(ConfigNameFromExePath(L"C:\\Tools\\Tessel ini=Work.exe"), L"Work");
    EXPECT_EQ(ConfigNameFromExePath(L"C:\\Tools\\Tessel ini=Abc.exe"), L"") << "three characters do not count";
    EXPECT_EQ(ConfigNameFromExePath(L"C:\\Tools\\Tessel.exe"), L"");
    EXPECT_EQ(ConfigNameFromExePath(L"ini=Work.exe"), L"") << "the word must lie past index 2";
    EXPECT_EQ(ConfigNameFromExePath(L"C:\\T ini=Long.name.exe"), L"Long");
}

TEST(ProfileValues, SectionLookupIsCaseInsensitiveAndFirstMatchWins) {
    std::wstring value;
    const wchar_t* lines = L"Alpha=1\nSHOW_TABS = 0\nshow_tabs=2\nbroken line\n";
    EXPECT_TRUE(FindSectionValue(lines, L"show_tabs", value));
    EXPECT_EQ(value, L"0");
    EXPECT_FALSE(FindSectionValue(lines, L"broken line", value));
    EXPECT_FALSE(FindSectionValue(L"", L"x", value));
}

}  // namespace tessel
