#include "frame/command_line.h"

#include <gtest/gtest.h>

#include "core/help_anchor.h"

namespace tessel {
namespace {

const auto kNoFiles = [](const std::wstring&) { return false; };

TEST(HelpRequest, OnlyAtPositionZeroWithOptionalAnchor) {
    HelpRequest help = ParseHelpRequest(L"-help#Options");
    EXPECT_TRUE(help.requested);
    EXPECT_EQ(help.anchor, L"#Options");
    help = ParseHelpRequest(L"-help#Layouts#ignored");
    EXPECT_EQ(help.anchor, L"#Layouts");
    help = ParseHelpRequest(L"-help");
    EXPECT_TRUE(help.requested);
    EXPECT_EQ(help.anchor, L"");
    EXPECT_EQ(ParseHelpRequest(L"-help##").anchor, L"");
    EXPECT_FALSE(ParseHelpRequest(L"x -help").requested);
    EXPECT_FALSE(ParseHelpRequest(L"-hel").requested);
}

// The anchor goes on a browser's command line inside quotes: nothing may end them.
TEST(HelpRequest, OnlyPlainTopicsReachTheBrowser) {
    EXPECT_EQ(SafeHelpAnchor(ParseHelpRequest(L"-help#Farben").anchor), L"#Farben");
    EXPECT_EQ(SafeHelpAnchor(L"#Tree-mode_2.1"), L"#Tree-mode_2.1");
    EXPECT_EQ(SafeHelpAnchor(ParseHelpRequest(L"-help#x\" --new-window \"file:///C:/evil#").anchor), L"");
    EXPECT_EQ(SafeHelpAnchor(L"#a b"), L"");
    EXPECT_EQ(SafeHelpAnchor(L"Farben"), L"") << "an anchor starts with its \"#\"";
    EXPECT_EQ(SafeHelpAnchor(L"#"), L"");
    EXPECT_EQ(SafeHelpAnchor(L"#" + std::wstring(100, L'a')), L"");
}

TEST(CommandLine, EmptyLineLoadsTheLastStateOnlyInStartModeFive) {
    EXPECT_TRUE(InterpretCommandLine(L"", 5, kNoFiles).loadLastState);
    StartPlan plan = InterpretCommandLine(L"", 0, kNoFiles);
    EXPECT_FALSE(plan.loadLastState);
    for (const std::wstring& path : plan.viewPaths) EXPECT_TRUE(path.empty());
}

TEST(CommandLine, SixQuotedPathsFillViewsAndTheLaterOnesFollowInViewOne) {
    StartPlan plan = InterpretCommandLine(
        L"\"C:\\One\" \"C:\\Two\" \"C:\\Three\" \"C:\\Four\" \"C:\\Five\" \"C:\\Six\"", 5, kNoFiles);
    EXPECT_FALSE(plan.loadLastState);
    EXPECT_EQ(plan.viewPaths[0], L"c:\\one");
    EXPECT_EQ(plan.laterFirstViewPaths, (std::vector<std::wstring>{L"c:\\five", L"c:\\six"}));
    EXPECT_EQ(plan.viewPaths[1], L"c:\\two");
    EXPECT_EQ(plan.viewPaths[2], L"c:\\three");
    EXPECT_EQ(plan.viewPaths[3], L"c:\\four");
    std::wstring many;
    for (int i = 0; i < 1000; ++i) many += L"\"C:\\p" + std::to_wstring(i) + L"\" ";
    plan = InterpretCommandLine(many, 5, kNoFiles);
    ASSERT_EQ(plan.laterFirstViewPaths.size(), kLaterPathLimit) << "only the last ones of a thousand";
    EXPECT_EQ(plan.laterFirstViewPaths.back(), L"c:\\p999");
    EXPECT_EQ(plan.viewPaths[3], L"c:\\p3");
}

TEST(CommandLine, PlainPathsAndShortLines) {
    StartPlan plan = InterpretCommandLine(L"   D:\\Data Folder  ", 5, kNoFiles);
    EXPECT_EQ(plan.viewPaths[0], L"d:\\data folder  ") << "only leading blanks are stripped";
    EXPECT_TRUE(InterpretCommandLine(L"C:\\", 5, kNoFiles).viewPaths[0].empty()) << "under 4 characters";
    EXPECT_TRUE(ParsePathList(L"\" \" \"\"").empty());
}

TEST(CommandLine, BrowseVerbAndExplorerForm) {
    StartPlan plan = InterpretCommandLine(L"\"/Browse\" \"C:\\Some Folder\"", 5, kNoFiles);
    EXPECT_TRUE(plan.loadLastState);
    EXPECT_EQ(plan.viewPaths[0], L"C:\\Some Folder");
    plan = InterpretCommandLine(L"\"/Browse\" C:\\x", 0, kNoFiles);
    EXPECT_FALSE(plan.loadLastState);
    EXPECT_EQ(plan.viewPaths[0], L"C:\\x");

    plan = InterpretCommandLine(L"/e,>C:\\Windows>extra", 5, kNoFiles);
    EXPECT_TRUE(plan.loadLastState);
    EXPECT_EQ(plan.viewPaths[0], L"C:\\Windows");
    EXPECT_EQ(plan.browseExtra, L"extra");
    EXPECT_TRUE(InterpretCommandLine(L"/e", 5, kNoFiles).viewPaths[0].empty());
}

TEST(CommandLine, ExistingFileIsAFolderSet) {
    auto onlySet = [](const std::wstring& p) { return p == L"C:\\sets\\work.tsf"; };
    StartPlan plan = InterpretCommandLine(L"\"C:\\sets\\work.tsf\"", 5, onlySet);
    EXPECT_EQ(plan.folderSetFile, L"C:\\sets\\work.tsf");
    EXPECT_FALSE(plan.loadLastState);
    EXPECT_TRUE(plan.viewPaths[0].empty());
}

// Any other text is the fuzz target's (fuzz/command_line_fuzz.cpp).
TEST(CommandLine, HugeLinesAreReadWhole) {
    std::wstring huge(100000, L'"');
    for (size_t i = 0; i < huge.size(); i += 3) huge[i] = L'a';
    StartPlan plan = InterpretCommandLine(huge, 5, kNoFiles);
    EXPECT_EQ(plan.viewPaths[0], L"a");
    EXPECT_EQ(InterpretCommandLine(std::wstring(100000, L'x'), 5, kNoFiles).viewPaths[0].size(), 100000u);
}

}  // namespace
}  // namespace tessel
