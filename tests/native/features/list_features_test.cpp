// The view filter, the size texts and the list export.
#include <gtest/gtest.h>

#include "features/case_fold.h"
#include "features/list_export.h"
#include "features/size_format.h"
#include "features/view_filter.h"
#include "support/memory_settings.h"

namespace tessel {
namespace {

bool Shows(const FilterSwitches& switches, std::wstring_view filter, std::wstring_view lowerName, bool folder = false) {
    return FilterShows(switches, FilterTokens(filter, FoldLowerPortable), lowerName, folder);
}

TEST(ViewFilter, TokensAutoWildcardsAndInversion) {
    const FilterTokens tokens(L"*.JPG,*.png;;*.jpg", FoldLowerPortable);
    EXPECT_EQ(tokens.Tokens(), (std::vector<std::wstring>{L"*.jpg", L"*.png"}));

    FilterSwitches on{1, 0, 0, 1, 1};
    EXPECT_TRUE(Shows(on, L"txt", L"readme.txt"));
    EXPECT_TRUE(Shows(on, L"txt", L"txtfiles.doc"));
    EXPECT_FALSE(Shows(on, L"txt;doc", L"readme.txt")) << "two tokens: no automatic wildcards";
    EXPECT_TRUE(Shows(on, L"txt;doc", L"doc"));
    EXPECT_TRUE(Shows(on, L"*.JPG,*.png", L"b.png"));
    EXPECT_TRUE(Shows(on, L"", L"any"));
    EXPECT_TRUE(Shows(on, L"txt", InFolderName(L"c:\\dir\\a.txt"))) << "the name after the last backslash";
    EXPECT_FALSE(Shows(on, L"txt", InFolderName(L"c:\\txt\\a.doc")));
    EXPECT_TRUE(Shows(on, L"*.txt;*.cpp", L"a.b.txt")) << "by the extension";
    EXPECT_FALSE(Shows(on, L"*.txt;*.cpp", L"a.txt.bak"));
    EXPECT_TRUE(Shows(on, L"*.tar.gz", L"x.tar.gz")) << "a longer ending is a pattern of its own";
    EXPECT_TRUE(Shows(on, L"*.", L"name.")) << "an empty extension";

    FilterSwitches negative = on;
    negative.by_negativ = 1;
    EXPECT_FALSE(Shows(negative, L"txt", L"readme.txt"));
    EXPECT_TRUE(Shows(negative, L"txt", L"a.doc"));
    EXPECT_TRUE(Shows(negative, L"", L"a.doc")) << "an empty filter shows everything";
}

TEST(ViewFilter, SwitchesDecideFirst) {
    FilterSwitches s{1, 0, 0, 1, 0};
    EXPECT_TRUE(Shows(s, L"*.txt", L"folder", true)) << "folders stay without by_dir_filter";
    s.by_dir_filter = 1;
    EXPECT_FALSE(Shows(s, L"*.txt", L"folder", true));
    s.show_filter = 0;
    EXPECT_TRUE(Shows(s, L"*.txt", L"a.doc")) << "a hidden filter box filters nothing";
    s = {0, 0, 1, 1, 0};
    EXPECT_TRUE(Shows(s, L"*.txt", L"a.doc"));
    EXPECT_FALSE(Shows({1, 0, 1, 1, 0}, std::wstring(10000, L'['), L"a")) << "a malformed filter matches nothing";
    EXPECT_FALSE(Shows({1, 0, 1, 1, 0}, std::wstring(10000, L'x'), L"a"));
}

TEST(ViewFilter, SwitchesAndRecentTextsInSettings) {
    testing::MemorySettings settings;
    settings.PutString(L"T_View_2", L"by_filter", L"7");
    FilterSwitches s;
    ReadFilterSwitches(settings, L"T_View_2", s);
    EXPECT_EQ(s.by_filter, 1) << "any non-zero value is on";
    s.by_negativ = 1;
    WriteFilterSwitches(settings, L"T_View_2", s);
    EXPECT_EQ(settings.GetString(L"T_View_2", L"by_negativ", L""), L"1");

    for (int i = 0; i < 20; ++i) RememberFilter(settings, L"f" + std::to_wstring(i));
    RememberFilter(settings, L"f10");
    RememberFilter(settings, L"");
    const std::vector<std::wstring> recent = ReadRecentFilters(settings);
    ASSERT_EQ(recent.size(), static_cast<size_t>(kRecentFilterCount));
    EXPECT_EQ(recent[0], L"f10");
    EXPECT_EQ(recent[1], L"f19");
    EXPECT_EQ(std::count(recent.begin(), recent.end(), L"f10"), 1);
}

TEST(SizeFormat, GeneralSizes) {
    EXPECT_EQ(FormatSize(0), L"0 Byte");
    EXPECT_EQ(FormatSize(999), L"999 Byte");
    EXPECT_EQ(FormatSize(1000), L"0.98 KB");
    EXPECT_EQ(FormatSize(10239), L"10.0 KB");
    EXPECT_EQ(FormatSize(102400), L"100 KB");
    EXPECT_EQ(FormatSize(1000000), L"0.95 MB");
    EXPECT_EQ(FormatSize(1500000000), L"1.40 GB");
    EXPECT_EQ(FormatSize(UINT64_MAX), L"17179869184 GB");
}

TEST(SizeFormat, ColumnUnitsDecimalsAndGrouping) {
    FolderSizeSettings s;
    EXPECT_EQ(FormatColumnSize(1234567, s, L","), L"1,234,567") << "type 1: plain bytes";
    s.ths_sep = 0;
    EXPECT_EQ(FormatColumnSize(1234567, s, L","), L"1234567");
    s = {};
    s.type = 0;
    EXPECT_EQ(FormatColumnSize(0, s, L"."), L"0");
    EXPECT_EQ(FormatColumnSize(999, s, L"."), L"999 byte");
    s.dig = 2;
    EXPECT_EQ(FormatColumnSize(1536, s, L"."), L"1.5 KB");
    s.type = 2;
    s.dig = 1;
    EXPECT_EQ(FormatColumnSize(5000000000, s, L"'"), L"4'882'812 KB");
    s.type = 3;
    s.dig = 4;
    EXPECT_EQ(FormatColumnSize(1048576 * 3 / 2, s, L","), L"1.500 MB");
    s.dig = 0;
    EXPECT_EQ(FormatColumnSize(1048576, s, L","), L"1.000000 MB");
    EXPECT_DOUBLE_EQ(SizeShare(50, 200), 0.25);
    EXPECT_DOUBLE_EQ(SizeShare(200, 200), 1.0);
    EXPECT_DOUBLE_EQ(SizeShare(0, 0), 0.0);

    testing::MemorySettings settings;
    settings.PutString(L"X-Size", L"precent", L"0");
    settings.PutString(L"X-Size", L"type", L"3");
    const FolderSizeSettings read = ReadFolderSizeSettings(settings);
    EXPECT_EQ(read.precent, 0);
    EXPECT_EQ(read.type, 3);
    EXPECT_EQ(read.ff_cnt, 1);
}

ExportTable HostileTable() {
    return {{L"Name", L"Hidden", L"Size"},
            {200, 10, 80},
            {{L"a;b \"q\".txt", L"x", L"1 KB"}, {L"<b>&amp;", L"y", L""}, {L"tab\there\r\nline", L"z"}}};
}

TEST(ListExport, TextAndCsvLeaveHiddenColumnsAndKeepCells) {
    EXPECT_EQ(FormatExport(HostileTable(), ExportType::kText),
              L"Name\tSize\r\na;b \"q\".txt\t1 KB\r\n<b>&amp;\t\r\ntab here  line\t\r\n");
    EXPECT_EQ(FormatExport(HostileTable(), ExportType::kCsv),
              L"\"Name\";\"Size\"\r\n\"a;b \"\"q\"\".txt\";\"1 KB\"\r\n\"<b>&amp;\";\"\"\r\n"
              L"\"tab\there\r\nline\";\"\"\r\n");
    const std::string bytes = ExportFileBytes({{L"\u00FC\u2713"}, {100}, {}}, ExportType::kCsv);
    EXPECT_EQ(bytes, "\xEF\xBB\xBF\"\xC3\xBC\xE2\x9C\x93\"\r\n");
}

TEST(ListExport, HtmlTableEscapesAndAlternatesRows) {
    const std::wstring html = FormatExport(HostileTable(), ExportType::kXls);
    EXPECT_TRUE(html.starts_with(L"<html><head><style><!-- \r\nbody,td,a,p,.h{"));
    const size_t table = html.find(L"<TABLE");
    EXPECT_EQ(html.substr(table),
              L"<TABLE Border=0><TR class=\"b_gelb\"><td><b><nobr>Name</b></td><td><b><nobr>Size</b></td></TR>\r\n\r\n"
              L"  <TR><td ><nobr>a;b &quot;q&quot;.txt</td><td ><nobr>1 KB</td>   </TR>\r\n"
              L"  <TR class=\"b_grau\"><td ><nobr>&lt;b&gt;&amp;amp;</td><td>&nbsp;</td>   </TR>\r\n"
              L"  <TR><td ><nobr>tab\there<br>line</td><td>&nbsp;</td>   </TR>\r\n"
              L"</TABLE></body></html>\r\n");
    const std::string bytes = ExportFileBytes({{L"\u00FC"}, {100}, {{L"\U0001F600"}}}, ExportType::kHtml);
    EXPECT_NE(bytes.find("&#252;"), std::string::npos);
    EXPECT_NE(bytes.find("&#128512;"), std::string::npos);
    EXPECT_TRUE(std::all_of(bytes.begin(), bytes.end(), [](char c) { return (c & 0x80) == 0; }));
}

// Names that a spreadsheet would run as formulas are kept as text there, and stay readable.
TEST(ListExport, SpreadsheetCellsNeverRunAsFormulas) {
    const ExportTable table{{L"Name"}, {100}, {{L"=HYPERLINK(\"http://x\").txt"}, {L"+1"}, {L"-2"}, {L"@SUM(A1)"},
                                                {L"\tx"}, {L"\rx"}, {L"a=b"}, {L""}}};
    EXPECT_EQ(FormatExport(table, ExportType::kCsv),
              L"\"Name\"\r\n\"'=HYPERLINK(\"\"http://x\"\").txt\"\r\n\"'+1\"\r\n\"'-2\"\r\n\"'@SUM(A1)\"\r\n"
              L"\"'\tx\"\r\n\"'\rx\"\r\n\"a=b\"\r\n\"\"\r\n");
    const std::wstring xls = FormatExport(table, ExportType::kXls);
    EXPECT_NE(xls.find(L"<nobr>'=HYPERLINK"), std::wstring::npos);
    EXPECT_NE(xls.find(L"<nobr>'@SUM(A1)</td>"), std::wstring::npos);
    EXPECT_NE(xls.find(L"<nobr>a=b</td>"), std::wstring::npos);
    EXPECT_NE(FormatExport(table, ExportType::kHtml).find(L"<nobr>=HYPERLINK"), std::wstring::npos)
        << "a web page shows the name as it is";
    EXPECT_NE(FormatExport(table, ExportType::kText).find(L"\r\n=HYPERLINK"), std::wstring::npos);
}

TEST(ListExport, NamesTypesAndTabSeparatedLists) {
    EXPECT_EQ(WithExportExtension(L"C:\\out\\Export_1", ExportType::kCsv), L"C:\\out\\Export_1.csv");
    EXPECT_EQ(WithExportExtension(L"C:\\out\\list.HTML", ExportType::kHtml), L"C:\\out\\list.HTML");
    EXPECT_EQ(WithExportExtension(L"list.txt", ExportType::kDoc), L"list.txt.doc");
    EXPECT_EQ(ExportTypeOf(0), ExportType::kText);
    EXPECT_EQ(ExportTypeOf(5), ExportType::kDoc);

    const std::vector<std::vector<std::wstring>> rows{{L"*.a", L"FF0000", L"-1"}, {L"b\tc", L""}};
    const std::wstring text = FormatTabSeparated(rows);
    EXPECT_EQ(text, L"*.a\tFF0000\t-1\r\nb c\t\r\n");
    EXPECT_EQ(ParseTabSeparated(text), (std::vector<std::vector<std::wstring>>{{L"*.a", L"FF0000", L"-1"}, {L"b c", L""}}));
    EXPECT_TRUE(ParseTabSeparated(L"\xFEFF\r\n\n").empty());
}

}  // namespace
}  // namespace tessel
