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
