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

TEST(SetupRemoval, TakesOnlyWhatThisConfigurationMade) {
    const std::vector<std::wstring> shared{L"Tessel.ini", L"Tessel_Work.ini", L"start.tsf"};
    SettingsRemoval work = PlanSettingsRemoval(L"Tessel_Work", false, L"D", L"W\\Tessel_Work.ini", shared);
    EXPECT_TRUE(work.registryKey);
    EXPECT_FALSE(work.wholeDataFolder) << "the main configuration's favorites and last state stay";
    EXPECT_EQ(work.files, (std::vector<std::wstring>{L"D\\Tessel_Work.ini", L"W\\Tessel_Work.ini"}));

    EXPECT_FALSE(PlanSettingsRemoval(L"Tessel", false, L"D", L"W\\Tessel.ini", shared).wholeDataFolder)
        << "another configuration still keeps its settings there";
    SettingsRemoval main = PlanSettingsRemoval(L"Tessel", false, L"D", L"W\\Tessel.ini", {L"TESSEL.INI", L"start.tsf"});
    EXPECT_TRUE(main.wholeDataFolder);
    EXPECT_EQ(main.files, (std::vector<std::wstring>{L"W\\Tessel.ini"}));

    const SettingsRemoval portable = PlanSettingsRemoval(L"Tessel", true, L"D", L"W\\Tessel.ini", {});
    EXPECT_FALSE(portable.registryKey || portable.wholeDataFolder || !portable.files.empty());

    EXPECT_TRUE(OtherConfigurationInstalled(L"Tessel_Work", {L"tessel.exe", L"Tessel_Uninstall.ini"}));
    EXPECT_FALSE(OtherConfigurationInstalled(L"Tessel", {L"tessel.exe", L"tessel_uninstall.ini", L"notes.ini"}));
}

}  // namespace
}  // namespace tessel
