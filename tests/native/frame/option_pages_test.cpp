// The tables of the options pages: every option reachable, every text translated, and stored
// values the pages cannot offer shown as what the program does with them.
#include "frame/option_pages.h"

#include <gtest/gtest.h>

#include <map>
#include <set>
#include <string>

#include "core/general_options.h"
#include "core/string_table.h"
#include "features/size_format.h"
#include "support/shipped_packs.h"

namespace tessel {
namespace {

std::multiset<std::wstring> KeysOnPages() {
    std::multiset<std::wstring> keys;
    for (const OptionPageTable& page : OptionPageTables())
        for (const OptionItem& item : page.items) keys.insert(std::wstring(item.section) + L"/" + item.key);
    return keys;
}

TEST(OptionPages, EveryOptionIsOnExactlyOnePage) {
    const std::multiset<std::wstring> keys = KeysOnPages();
    size_t count = 0;
    const OptionEntry* table = OptionTable(count);
    std::vector<std::wstring> wanted;
    for (size_t i = 0; i < count; ++i) wanted.push_back(std::wstring(L"Start/") + table[i].key);
    for (const wchar_t* key : {L"tabs_hover_time", L"tree_hover_time", L"tray_icon", L"tree_mode", L"designe_mode"})
        wanted.push_back(std::wstring(L"Start/") + key);
    for (const wchar_t* key : {L"fld_size", L"type", L"ths_sep", L"dig", L"precent", L"ff_cnt", L"block_no_focus",
                               L"nosort_fld_size"})
        wanted.push_back(std::wstring(L"X-Size/") + key);
    for (const std::wstring& key : wanted)
        EXPECT_EQ(keys.count(key), 1u) << std::string(key.begin(), key.end());
    EXPECT_EQ(keys.size(), wanted.size()) << "no page offers a key twice or one the program does not read";
}

TEST(OptionPages, EveryLabelAndChoiceIsTranslated) {
    StringTable english, german;
    english.Parse(testing::ReadPack("EN"));
    german.Parse(testing::ReadPack("DE"));
    auto present = [](const StringTable& table, int id) { return table.Find(id) && !table.Find(id)->empty(); };
    for (const OptionPageTable& page : OptionPageTables()) {
        std::vector<int> ids{page.titleId};
        for (const OptionItem& item : page.items) {
            ids.push_back(item.labelId);
            for (const OptionChoice& choice : item.choices) ids.push_back(choice.textId);
        }
        for (int id : ids) {
            EXPECT_TRUE(present(english, id)) << "English lacks " << id;
            EXPECT_TRUE(present(german, id)) << "German lacks " << id;
        }
    }
}

TEST(OptionPages, ChoicesAreDistinctAndTheirFallbackIsOffered) {
    for (const OptionPageTable& page : OptionPageTables())
        for (const OptionItem& item : page.items) {
            const std::string key(item.key, item.key + std::wcslen(item.key));
            if (item.kind == OptionKind::kChoice) {
                std::set<int> values;
                for (const OptionChoice& choice : item.choices) values.insert(choice.value);
                EXPECT_EQ(values.size(), item.choices.size()) << key;
                EXPECT_GE(ChoiceIndex(item, item.fallback), 0) << key;
            }
            if (item.kind == OptionKind::kNumber) {
                EXPECT_LT(item.minimum, item.maximum) << key;
                EXPECT_EQ(ShownValue(item, item.fallback), item.fallback) << key << ": its default is in range";
            }
        }
}

const OptionItem& Item(const wchar_t* key) {
    for (const OptionPageTable& page : OptionPageTables())
        for (const OptionItem& item : page.items)
            if (std::wstring_view(item.key) == key) return item;
    ADD_FAILURE() << "no item";
    return OptionPageTables()[0].items[0];
}

TEST(OptionPages, OutOfRangeValuesShowWhatTheProgramDoes) {
    EXPECT_EQ(ShownValue(Item(L"designe_mode"), 7), 0) << "any other style is read as 0";
    EXPECT_EQ(ShownValue(Item(L"designe_mode"), 2), 2);
    EXPECT_EQ(ShownValue(Item(L"Als"), 3), 0) << "every mode but 5 starts with the drives";
    EXPECT_EQ(ShownValue(Item(L"Als"), 5), 5);
    EXPECT_EQ(ShownValue(Item(L"tabs_hover_time"), -4), 0) << "other values mean half a second";
    EXPECT_EQ(ShownValue(Item(L"tab_width_mode"), 2), 0) << "2 leaves labels uncut";
    EXPECT_EQ(ShownValue(Item(L"useTreeColor"), 9), 2) << "any other non-zero value is the list font";
    EXPECT_EQ(ShownValue(Item(L"address_bar_mod"), -1), -1);
    EXPECT_EQ(ShownValue(Item(L"address_bar_mod"), 4), 0);
    EXPECT_EQ(ShownValue(Item(L"tab_max_width"), 5000), 300);
    EXPECT_EQ(ShownValue(Item(L"tab_max_width"), -20), 60);
    EXPECT_EQ(ShownValue(Item(L"tab_max_width"), 150), 150);
    EXPECT_EQ(ShownValue(Item(L"close_ask"), -3), 1) << "a check is on for any non-zero value";
    EXPECT_EQ(ShownValue(Item(L"dig"), 9), 0) << "other decimals print six places";
}

TEST(OptionPages, MenuTextsLoseTheirMarksAndShortcuts) {
    EXPECT_EQ(PlainMenuText(L"&Ask before closing"), L"Ask before closing");
    EXPECT_EQ(PlainMenuText(L"&Refresh all views\tF5"), L"Refresh all views");
    EXPECT_EQ(PlainMenuText(L"Copy && paste"), L"Copy & paste");
    EXPECT_EQ(PlainMenuText(L"Ends with &"), L"Ends with &");
    EXPECT_EQ(PlainMenuText(L""), L"");
}

TEST(OptionPages, LookUpTheVariablesTheProgramReads) {
    GeneralOptions options;
    ASSERT_NE(OptionField(options, L"i-net"), nullptr);
    *OptionField(options, L"i-net") = 0;
    EXPECT_EQ(options.i_net, 0);
    *OptionField(options, L"tree_hover_time") = 4;
    EXPECT_EQ(options.tree_hover_time, 4);
    EXPECT_EQ(OptionField(options, L"tree_mode"), nullptr) << "the window keeps its tree mode itself";
    FolderSizeSettings sizes;
    *FolderSizeField(sizes, L"precent") = 0;
    EXPECT_EQ(sizes.precent, 0);
    EXPECT_EQ(FolderSizeField(sizes, L"percent"), nullptr);
}

}  // namespace
}  // namespace tessel
