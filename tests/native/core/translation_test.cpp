// The translation editor's model: rows from two packs, searching, changing, and the language
// file it writes read back by the same parser as the program's packs.
#include "core/translation.h"

#include <gtest/gtest.h>

#include "core/utf8.h"

namespace tessel {
namespace {

StringTable Parsed(std::wstring_view text) {
    StringTable table;
    table.Parse(text);
    return table;
}

TEST(Translation, RowsJoinBothPacksOncePerIdInOrder) {
    const StringTable english = Parsed(L"20=Open\n10=Close\n30=Exit\n");
    const StringTable french = Parsed(L"10=Fermer\n10=Second wins not\n40=Only here\n");
    TranslationDraft draft(english, french);
    ASSERT_EQ(draft.Rows().size(), 4u);
    EXPECT_EQ(draft.Rows()[0].id, 10);
    EXPECT_EQ(draft.Rows()[0].text, L"Fermer") << "the first line of an id counts, as when the program reads it";
    EXPECT_EQ(draft.Rows()[1].text, L"") << "20 is missing in French";
    EXPECT_EQ(draft.Rows()[3].english, L"") << "an id only the translation has is kept";
    EXPECT_EQ(draft.Translated(), 2u);
}

TEST(Translation, SearchLooksAtIdsAndBothTextsWithoutCase) {
    TranslationDraft draft(Parsed(L"1=Open folder\n2=Close\n33=Exit\n"), Parsed(L"2=Schließen\n"));
    EXPECT_EQ(draft.Find(L"").size(), 3u);
    EXPECT_EQ(draft.Find(L"FOLDER"), std::vector<size_t>{0});
    EXPECT_EQ(draft.Find(L"schließ"), std::vector<size_t>{1});
    EXPECT_EQ(draft.Find(L"33"), std::vector<size_t>{2});
    EXPECT_TRUE(draft.Find(L"nothing").empty());
}

// Only what differs from the program's own pack goes into the language file: a later fix of the
// pack then reaches every text the user did not change.
TEST(Translation, TheFileHoldsOnlyWhatDiffersFromTheOwnPack) {
    const StringTable own = Parsed(L"1=Ouvrir\n2=Fermer\n");
    // What the editor is given for the language: the file's lines first, then the own pack.
    TranslationDraft draft(Parsed(L"1=Open\n2=Close\n3=Exit\n"), Parsed(L"3=Quitter\n1=Ouvrir\n2=Fermer\n"), own);
    draft.Set(1, L"Clore");
    const StringTable written = Parsed(draft.PackText(L"; Tessel FR"));
    EXPECT_EQ(written.Find(1), nullptr) << "unchanged from the own pack";
    ASSERT_NE(written.Find(2), nullptr);
    EXPECT_EQ(*written.Find(2), L"Clore");
    ASSERT_NE(written.Find(3), nullptr) << "the file's own line stays";
    EXPECT_EQ(*written.Find(3), L"Quitter");
}

TEST(Translation, TheWrittenFileReadsBackToTheSameTexts) {
    TranslationDraft draft(Parsed(L"1=A\n2=B\n3=C\n"), Parsed(L"1=Un\n"));
    EXPECT_FALSE(draft.Changed());
    draft.Set(1, L"Deux\tcolonnes\r\nligne");
    draft.Set(2, L"  ");
    draft.Set(99, L"out of range is ignored");
    EXPECT_TRUE(draft.Changed());
    const std::wstring pack = draft.PackText(L"; Tessel FR");
    EXPECT_EQ(pack.substr(0, 12), L"; Tessel FR\n");
    const StringTable read = Parsed(pack);
    ASSERT_NE(read.Find(2), nullptr);
    EXPECT_EQ(*read.Find(2), L"Deux\tcolonnes\r\nligne");
    EXPECT_EQ(read.Find(3), nullptr) << "a text of blanks is no translation";
    EXPECT_EQ(*read.Find(1), L"Un");
    draft.MarkSaved();
    EXPECT_FALSE(draft.Changed());
}

TEST(Translation, EscapesRoundTripForTheEditField) {
    EXPECT_EQ(EscapedText(L"a\tb\nc\rd"), L"a\\tb\\nc\\rd");
    EXPECT_EQ(UnescapedText(L"a\\tb\\nc\\rd"), L"a\tb\nc\rd");
    EXPECT_EQ(UnescapedText(L"C:\\x\\"), L"C:\\x\\") << "other backslashes stay";
}

// Language files are read as DecodeTextFile reads them, single bytes as UTF-8 where they can be.
std::wstring DecodeLanguageFile(std::string_view bytes) { return DecodeTextFile(bytes, DecodeUtf8OrLatin1); }

TEST(Translation, LanguageFilesComeInTheEncodingsEditorsWrite) {
    EXPECT_EQ(DecodeLanguageFile(std::string("\xFF\xFE" "1\0=\0a\0", 8)), L"1=a");
    EXPECT_EQ(DecodeLanguageFile(std::string("\xFE\xFF\0" "1\0=\0a", 8)), L"1=a");
    EXPECT_EQ(DecodeLanguageFile("\xEF\xBB\xBF" "1=caf\xC3\xA9"), L"1=caf\u00E9");
    EXPECT_EQ(DecodeLanguageFile("1=caf\xE9"), L"1=caf\u00E9");
    EXPECT_EQ(DecodeLanguageFile(""), L"");
}

}  // namespace
}  // namespace tessel
