#include "core/string_table.h"
#include "support/shipped_packs.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <map>
#include <set>

namespace tessel {
namespace {

struct FakePacks : ILanguagePacks {
    std::map<std::wstring, std::wstring> texts;
    int loads = 0;
    std::wstring LoadText(std::wstring_view code) override {
        ++loads;
        auto it = texts.find(std::wstring(code));
        return it == texts.end() ? std::wstring() : it->second;
    }
};

TEST(StringTable, ParsesTrimsUnescapesAndKeepsOrder) {
    StringTable table;
    table.Parse(L"\xFEFF  12 =  Hello\\tWorld\r\n; comment = 5\n"
                L"2000000=too big\n0=zero\n-5=negative\n1999999=last\n"
                L"7=first\n7=second\nno equals sign\n8=a=b\\n\\r\\q");
    ASSERT_NE(table.Find(12), nullptr);
    EXPECT_EQ(*table.Find(12), L"Hello\tWorld");
    EXPECT_EQ(table.Find(2000000), nullptr);
    EXPECT_EQ(table.Find(0), nullptr);
    EXPECT_EQ(table.Find(-5), nullptr);
    EXPECT_EQ(*table.Find(1999999), L"last");
    EXPECT_EQ(*table.Find(7), L"first");
    EXPECT_EQ(*table.Find(8), L"a=b\n\r\\q");
    EXPECT_EQ(table.size(), 5u);
}

TEST(StringTable, LanguageCodes) {
    EXPECT_STREQ(LanguageCode(0), L"DE");
    EXPECT_STREQ(LanguageCode(4), L"EN");
    EXPECT_STREQ(LanguageCode(9), L"CHS");
    EXPECT_STREQ(LanguageCode(18), L"BR");
    EXPECT_STREQ(LanguageCode(19), L"EN");
    EXPECT_STREQ(LanguageCode(99), L"EN");
    EXPECT_STREQ(LanguageCode(-1), L"EN");
}

TEST(Strings, FallsBackToEnglishThenPlaceholder) {
    FakePacks packs;
    packs.texts[L"FR"] = L"1=Un\n2=\n";
    packs.texts[L"EN"] = L"1=One\n2=Two\n4711=Missing in French\n";
    int language = 2;
    Strings strings(packs, language);
    EXPECT_EQ(strings.GetText(1), L"Un");
    EXPECT_EQ(strings.GetText(2), L"Two") << "an empty text counts as missing";
    EXPECT_EQ(strings.GetText(4711), L"Missing in French");
    EXPECT_EQ(strings.GetText(0), L"Tessel");
    EXPECT_EQ(strings.GetText(99), L"String 99 is not in list");

    strings.SetShowMissingIds(true);
    EXPECT_EQ(strings.GetText(4711), L"String 4711 is not in list");
    EXPECT_EQ(strings.GetText(0), L"String 0 is not in list");
    EXPECT_EQ(strings.GetText(1), L"Un");
}

TEST(Strings, ReloadsWhenTheLanguageChangesAndLoadsEnglishOnce) {
    FakePacks packs;
    packs.texts[L"DE"] = L"5=Fünf\n";
    packs.texts[L"EN"] = L"5=Five\n";
    int language = 0;
    Strings strings(packs, language);
    EXPECT_EQ(strings.GetText(5), L"Fünf");
    EXPECT_EQ(strings.GetText(5), L"Fünf");
    EXPECT_EQ(packs.loads, 2) << "current and English, once each";
    language = 99;
    EXPECT_EQ(strings.GetText(5), L"Five");
    language = 4;
    EXPECT_EQ(strings.GetText(5), L"Five");
    EXPECT_EQ(packs.loads, 4);
}

using testing::ReadPack;

std::set<int> IdsOf(const std::wstring& text) {
    std::set<int> ids;
    StringTable table;
    table.Parse(text);
    for (int id = 1; id < 70000; ++id)
        if (const std::wstring* t = table.Find(id); t && !t->empty()) ids.insert(id);
    return ids;
}

TEST(LanguagePacks, GermanAndEnglishHoldTheSameCompleteSetOfIds) {
    std::set<int> english = IdsOf(ReadPack("EN"));
    std::set<int> german = IdsOf(ReadPack("DE"));
    const int required[] = {19,    78,    79,    80,    108,   109,   119,   128,   134,   137,   183,
                            184,   281,   282,   283,   284,   285,   286,   288,   1007,  20004, 40004,
                            40005, 51206, 51207, 51208, 59003, 59004, 59005, 59006, 59007, 59008, 59009,
                            59010, 59011, 59012, 59013, 59022, 60000};
    for (int id : required) {
        EXPECT_TRUE(english.count(id)) << "English lacks " << id;
        EXPECT_TRUE(german.count(id)) << "German lacks " << id;
    }
    EXPECT_EQ(english, german) << "every text is translated both ways";
}

}  // namespace
}  // namespace tessel
