// The favorites folder, the names of new favorites, and the quick-link and program lists.
#include <gtest/gtest.h>

#include <set>

#include "nav/favorites_folder.h"
#include "features/quick_links.h"
#include "nav/search_favorite.h"
#include "support/memory_settings.h"

namespace tessel {
namespace {

struct Places : IFavoritesPlaces {
    std::wstring appData = L"C:\\Users\\me\\AppData\\Roaming";
    std::set<std::wstring> existing;
    std::wstring AppDataFolder() override { return appData; }
    std::wstring ProgramFolder() override { return L"D:\\Portable\\Tessel"; }
    bool FolderExists(const std::wstring& path) override { return existing.count(path) > 0; }
};

TEST(Favorites, FolderIsFoundNormalisedAndStoredBack) {
    testing::MemorySettings settings;
    Places places;
    EXPECT_EQ(FindFavoritesFolder(settings, places), L"");
    EXPECT_EQ(settings.GetString(L"Favoriten", L"Ordner", L"-"), L"-") << "nothing found, nothing written";

    places.existing.insert(L"C:\\Users\\me\\AppData\\Roaming\\Tessel\\Favoriten\\");
    EXPECT_EQ(FindFavoritesFolder(settings, places), L"C:\\Users\\me\\AppData\\Roaming\\Tessel\\Favoriten\\");
    EXPECT_EQ(settings.GetString(L"Favoriten", L"Ordner", L""), L"C:\\Users\\me\\AppData\\Roaming\\Tessel\\Favoriten\\");

    settings.PutString(L"Favoriten", L"Ordner", L"  E:/Favs//mine  ");
    EXPECT_EQ(FindFavoritesFolder(settings, places), L"E:\\Favs\\mine\\");
    EXPECT_EQ(settings.GetString(L"Favoriten", L"Ordner", L""), L"E:\\Favs\\mine\\");

    settings.PutString(L"Favoriten", L"Ordner", L".\\Favoriten");
    EXPECT_EQ(FindFavoritesFolder(settings, places), L"D:\\Portable\\Tessel\\Favoriten\\");
    EXPECT_EQ(settings.GetString(L"Favoriten", L"Ordner", L""), L".\\Favoriten\\") << "a portable copy stays portable";

    EXPECT_EQ(NormaliseFolderPath(L"\\\\server\\\\share"), L"\\\\server\\share\\");
    EXPECT_EQ(NormaliseFolderPath(L"   "), L"");
}

TEST(Favorites, QuickLinkFolderDefaultIsWrittenBack) {
    testing::MemorySettings settings;
    Places places;
    EXPECT_EQ(QuickLinkFolder(settings, places), L"C:\\Users\\me\\AppData\\Roaming\\Tessel\\Favoriten\\Quick-Link");
    EXPECT_EQ(settings.GetString(L"T", L"Link", L""), L"C:\\Users\\me\\AppData\\Roaming\\Tessel\\Favoriten\\Quick-Link");
    settings.PutString(L"T", L"Link", L".\\Favoriten\\Quick-Link\\");
    EXPECT_EQ(QuickLinkFolder(settings, places), L"D:\\Portable\\Tessel\\Favoriten\\Quick-Link\\");
}

TEST(Favorites, DefaultNameHasDayWithoutAndMonthWithLeadingZero) {
    std::tm when{};
    when.tm_mday = 4;
    when.tm_mon = 1;
    when.tm_year = 126;
    when.tm_hour = 8;
    when.tm_min = 7;
    EXPECT_EQ(DefaultFavoriteName(when), L"4.02.2026 08-07");
}

TEST(Favorites, SearchFavoritesKeepFolderAndFilter) {
    const SearchFavorite search{L"C:\\Projects\\a=b", L"*.cpp;*.h"};
    SearchFavorite read;
    ASSERT_TRUE(ReadSearchFavorite(WriteSearchFavorite(search), read));
    EXPECT_EQ(read, search);
    ASSERT_TRUE(ReadSearchFavorite(L"\uFEFF[other]\nFolder=X\n[SEARCH]\r\n folder = D:\\x \r\nFilter=\r\n", read));
    EXPECT_EQ(read, (SearchFavorite{L"D:\\x", L""})) << "keys of other sections do not count";
    EXPECT_FALSE(ReadSearchFavorite(L"[Search]\nFilter=*.txt\n", read)) << "no folder, no favorite";
    ASSERT_TRUE(ReadSearchFavorite(WriteSearchFavorite({L"C:\\a\nFolder=Z:\\", L"x\ny"}), read));
    EXPECT_EQ(read.folder, L"C:\\a Folder=Z:\\") << "a line break cannot add a line";
    EXPECT_EQ(SearchFavoritePath(L"C:\\Fav\\code"), L"C:\\Fav\\code.tsq");
    EXPECT_EQ(SearchFavoritePath(L"C:\\Fav\\code.TSQ"), L"C:\\Fav\\code.TSQ");
}

TEST(QuickLinks, LinesSplitAtTheFirstEqualsSign) {
    const auto entries = ParseQuickLinks(L"Home=C:\\Users\\me\r\n\r\nEdit=notepad.exe %sel_file% a=b\nC:\\Bare\n=x\n");
    ASSERT_EQ(entries.size(), 4u);
    EXPECT_EQ(entries[0], (QuickLinkEntry{L"Home", L"C:\\Users\\me"}));
    EXPECT_EQ(entries[1], (QuickLinkEntry{L"Edit", L"notepad.exe %sel_file% a=b"}));
    EXPECT_EQ(entries[2], (QuickLinkEntry{L"C:\\Bare", L"C:\\Bare"})) << "a line without \"=\" names its own target";
    EXPECT_EQ(entries[3], (QuickLinkEntry{L"", L"x"}));
    EXPECT_EQ(ParseQuickLinks(FormatQuickLinks(entries)), entries);

    std::wstring many;
    for (int i = 0; i < 2100; ++i) many += L"n=" + std::to_wstring(i) + L"\n";
    EXPECT_EQ(ParseQuickLinks(many).size(), kQuickLinkMaxEntries) << "the command range holds 2000";
}

// An entry is taken only when its settings line reads back as the same entry: the profile
// functions split a line at its first "=", take "[" for a section and ";" for a comment.
TEST(QuickLinks, AnEntryIsTakenOnlyWhenItReadsBackEqual) {
    EXPECT_TRUE(QuickLinkStorable({L"Home", L"C:\\Users a=b"}));
    EXPECT_TRUE(QuickLinkStorable({L"x[1]", L"x"}));
    for (const QuickLinkEntry& entry : std::vector<QuickLinkEntry>{{L"a=b", L"x"}, {L"[Section]", L"x"}, {L";note", L"x"},
                                                                   {L"two\nlines", L"x"}, {L"n", L"t\r\nz"}, {L"", L"x"},
                                                                   {L"n", std::wstring(1100, L'p')}})
        EXPECT_FALSE(QuickLinkStorable(entry));
}

TEST(QuickLinks, DisabledListsAreNotOffered) {
    testing::MemorySettings settings;
    WriteQuickLinks(settings, kProgramsSection, {{L"Edit", L"notepad.exe"}});
    EXPECT_EQ(ReadQuickLinks(settings, kProgramsSection).size(), 1u);
    settings.PutInt(L"Programs_State", L"Disable", 1);
    EXPECT_TRUE(ReadQuickLinks(settings, kProgramsSection).empty());
    EXPECT_TRUE(ReadQuickLinks(settings, kQuickLinksSection).empty()) << "a missing section is an empty menu";
}

TEST(QuickLinks, AssociationsNameExtensionsInAnyForm) {
    const std::vector<QuickLinkEntry> associations{{L"*.txt; .log", L"notepad.exe"}, {L"JPG,png", L"paint.exe"}};
    EXPECT_EQ(AssociatedProgram(associations, L"C:\\a\\README.TXT"), L"notepad.exe");
    EXPECT_EQ(AssociatedProgram(associations, L"x.log"), L"notepad.exe");
    EXPECT_EQ(AssociatedProgram(associations, L"photo.jpg"), L"paint.exe");
    EXPECT_EQ(AssociatedProgram(associations, L"C:\\dir.txt\\file"), L"");
    EXPECT_EQ(AssociatedProgram(associations, L"archive.tar.gz"), L"");
    EXPECT_EQ(AssociatedProgram(associations, L"txt"), L"");
}

TEST(QuickLinks, CommandsSplitIntoProgramAndArguments) {
    const auto isFile = [](const std::wstring& path) { return path == L"C:\\Program Files\\Edit\\edit.exe"; };
    const auto split = [&](std::wstring_view text) {
        const CommandParts parts = SplitCommand(text, isFile);
        return parts.program + L"|" + parts.arguments;
    };
    EXPECT_EQ(split(L"  \"C:\\My Tools\\x.exe\"  \"a b\" c "), L"C:\\My Tools\\x.exe|\"a b\" c");
    EXPECT_EQ(split(L"C:\\Program Files\\Edit\\edit.exe \"C:\\a b.txt\""), L"C:\\Program Files\\Edit\\edit.exe|\"C:\\a b.txt\"");
    EXPECT_EQ(split(L"notepad.exe  x.txt"), L"notepad.exe|x.txt");
    EXPECT_EQ(split(L"C:\\Program Files\\Edit\\edit.exe"), L"C:\\Program Files\\Edit\\edit.exe|");
    EXPECT_EQ(split(L"\"unclosed x"), L"unclosed x|");
    EXPECT_EQ(split(L""), L"|");
}

}  // namespace
}  // namespace tessel
