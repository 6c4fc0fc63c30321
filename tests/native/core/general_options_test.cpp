#include "core/general_options.h"

#include <gtest/gtest.h>

#include "support/memory_settings.h"

namespace tessel {
namespace {

using testing::MemorySettings;

TEST(GeneralOptions, MissingSectionKeepsEveryDefault) {
    MemorySettings store;
    store.PutString(L"Other", L"show_tabs", L"0");
    GeneralOptions options;
    LoadGeneralOptions(store, options);
    GeneralOptions defaults;
    size_t count = 0;
    const OptionEntry* table = OptionTable(count);
    for (size_t i = 0; i < count; ++i)
        EXPECT_EQ(options.*table[i].field, defaults.*table[i].field) << table[i].key;
    EXPECT_EQ(options.show_tabs, 2);
    EXPECT_EQ(options.Als, 5);
    EXPECT_EQ(options.tab_max_width, 120);
}

TEST(GeneralOptions, PresentKeysOverrideAndNonNumbersReadAsZero) {
    MemorySettings store;
    store.PutString(L"Start", L"show_tabs", L"0");
    store.PutString(L"Start", L"i-net", L"0");
    store.PutString(L"Start", L"TAB_MAX_WIDTH", L"250");
    store.PutString(L"Start", L"useTreeColor", L"banana");
    store.PutString(L"Start", L"Als", L"-3");  // no range checks at load
    store.PutString(L"Start", L"tabs_hover_time", L"5");  // outside the table, read in the same load
    GeneralOptions options;
    LoadGeneralOptions(store, options);
    EXPECT_EQ(options.show_tabs, 0);
    EXPECT_EQ(options.i_net, 0);
    EXPECT_EQ(options.tab_max_width, 250);
    EXPECT_EQ(options.useTreeColor, 0);
    EXPECT_EQ(options.Als, -3);
    EXPECT_EQ(options.tree_auto_sel, 1);
    EXPECT_EQ(options.tabs_hover_time, 5);
    EXPECT_EQ(options.tree_hover_time, 0);
}

// Every key is part of the file format, unusual spellings included ("adress_tree", "i-net"):
// the whole table in loading order with its defaults. A "corrected" key must fail here.
TEST(GeneralOptions, GoldenKeysAndDefaultsInLoadingOrder) {
    const std::pair<const wchar_t*, int> golden[] = {
        {L"m_lang_id", 0},
        {L"tree_auto_sel", 1},
        {L"StatusBar", 1},
        {L"i-net", 1},
        {L"show_tabs", 2},
        {L"media_preview_by", 0},
        {L"AnsichtSav", 1},
        {L"useColor", 0},
        {L"spalten_speichern", 1},
        {L"audio_click", 1},
        {L"fullrow_sel", 0},
        {L"show_linie", 0},
        {L"adress_tree", 1},
        {L"copy_cut_paste_mode", 0},
        {L"disable_column_hl", 1},
        {L"disable_up_down_edit", 0},
        {L"tab_use_context_menu", 1},
        {L"noenumrefresh", 0},
        {L"header_in_all_views", 1},
        {L"adress_autosel", 1},
        {L"merke_markierte", 1},
        {L"merke_ansicht", 1},
        {L"title_info", 0},
        {L"close_ask", 0},
        {L"address_bar_mod", 0},
        {L"lmouse_dblclk", 0},
        {L"status_selection_type", 0},
        {L"status_no_selection_type", 0},
        {L"adresbar_use_highlighted", 1},
        {L"status_use_highlighted", 1},
        {L"adresbar_style", 0},
        {L"mousewheel_focus", 0},
        {L"select_last_if_navigate_up", 1},
        {L"tree_auto_chk_subdir", 1},
        {L"tree_disable_line", 0},
        {L"only_label_or_icon_clk", 0},
        {L"no_keep_grouping", 0},
        {L"useTreeColor", 2},
        {L"tree_all_browsable", 1},
        {L"tree_expand_when_select", 0},
        {L"tree_fullrowselect", 0},
        {L"tree_single_expand", 0},
        {L"Als", 5},
        {L"enable_priv", 1},
        {L"tab_width_mode", 1},
        {L"tab_max_width", 120},
    };
    size_t count = 0;
    const OptionEntry* table = OptionTable(count);
    ASSERT_EQ(count, std::size(golden));
    const GeneralOptions defaults;
    for (size_t i = 0; i < count; ++i) {
        EXPECT_STREQ(table[i].key, golden[i].first) << "position " << i;
        EXPECT_EQ(defaults.*table[i].field, golden[i].second) << golden[i].first;
    }
}

TEST(GeneralOptions, TableHoldsEveryKeyOnceInLoadingOrder) {
    size_t count = 0;
    const OptionEntry* table = OptionTable(count);
    ASSERT_EQ(count, 46u);
    EXPECT_STREQ(table[0].key, L"m_lang_id");
    EXPECT_STREQ(table[3].key, L"i-net");
    EXPECT_STREQ(table[count - 1].key, L"tab_max_width");
    for (size_t i = 0; i < count; ++i)
        for (size_t j = i + 1; j < count; ++j) {
            EXPECT_NE(std::wstring(table[i].key), std::wstring(table[j].key));
            EXPECT_NE(table[i].field, table[j].field) << table[i].key << " shares a variable";
        }
}

TEST(GeneralOptions, RegistryModeReadsLanguageFromRegistryBeforeTheFile) {
    MemorySettings store;
    store.fileMode = false;
    store.registry[L"lng"] = 1;
    GeneralOptions options;
    LoadGeneralOptions(store, options);
    EXPECT_EQ(options.m_lang_id, 1);
    store.PutString(L"Start", L"m_lang_id", L"3");
    LoadGeneralOptions(store, options);
    EXPECT_EQ(options.m_lang_id, 3) << "the section, read after the registry, wins";

    MemorySettings fileStore;
    fileStore.registry[L"lng"] = 1;  // ignored in file mode
    GeneralOptions fileOptions;
    LoadGeneralOptions(fileStore, fileOptions);
    EXPECT_EQ(fileOptions.m_lang_id, 0);
}

TEST(GeneralOptions, WriteOptionGoesToStart) {
    MemorySettings store;
    EXPECT_TRUE(WriteOption(store, L"close_ask", 1));
    EXPECT_EQ(store.GetString(L"Start", L"close_ask", L""), L"1");
}

}  // namespace
}  // namespace tessel
