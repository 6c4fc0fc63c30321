#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "frame/command_line.h"
#include "frame/setup_steps.h"

namespace tessel {
namespace {

TEST(SetupWords, OnlyAWholeLineOfOneWordWithAnOptionalQuietIsTaken) {
    EXPECT_EQ(ParseSetupWords(L"install").action, SetupAction::kInstall);
    EXPECT_EQ(ParseSetupWords(L"  SETUP ").action, SetupAction::kInstall);
    EXPECT_EQ(ParseSetupWords(L"-uninstall").action, SetupAction::kUninstall);
    EXPECT_EQ(ParseSetupWords(L"-uninstall+").action, SetupAction::kUninstallAll);
    const SetupRequest quiet = ParseSetupWords(L"-Uninstall+ /QUIET");
    EXPECT_EQ(quiet.action, SetupAction::kUninstallAll);
    EXPECT_TRUE(quiet.quiet);
    EXPECT_FALSE(ParseSetupWords(L"install").quiet);
    // Paths, folder-set files and other words start the program as usual.
    for (const wchar_t* line : {L"", L"\"c:\\install\"", L"c:\\setup", L"install now", L"install /quiet x",
                                L"/quiet", L"-uninstall++", L"uninstall", L"install/quiet"})
        EXPECT_EQ(ParseSetupWords(line).action, SetupAction::kNone) << line;
}

TEST(SetupSteps, AFailedStepUndoesTheDoneStepsInReverseAndSkipsTheRest) {
    SetupSteps steps;
    std::vector<std::wstring> undone;
    EXPECT_TRUE(steps.Run(L"made a", L"-", [] { return true; }, [&] { undone.push_back(L"a"); }));
    EXPECT_TRUE(steps.Run(L"made b", L"-", [] { return true; }));  // nothing to undo
    EXPECT_TRUE(steps.Run(L"made c", L"-", [] { return true; }, [&] { undone.push_back(L"c"); }));
    steps.Note(L"a note");
    EXPECT_FALSE(steps.Run(L"-", L"could not make d", [] { return false; }, [&] { undone.push_back(L"d"); }));
    bool ran = false;
    EXPECT_FALSE(steps.Run(L"made e", L"-", [&] { return ran = true; }));
    EXPECT_FALSE(ran);
    EXPECT_TRUE(steps.Failed());
    EXPECT_EQ(undone, (std::vector<std::wstring>{L"c", L"a"}));
    EXPECT_EQ(steps.ReportText(), L"made a\nmade b\nmade c\na note\ncould not make d\n");
}

}  // namespace
}  // namespace tessel
