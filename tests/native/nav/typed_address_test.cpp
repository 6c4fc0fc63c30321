#include "nav/typed_address.h"

#include <gtest/gtest.h>

namespace tessel {
namespace {

std::optional<std::wstring> FakeEnvironment(std::wstring_view name) {
    if (name == L"WINDIR") return L"C:\\windows";
    if (name == L"LONG") return std::wstring(kEnvironmentValueLimit + 1, L'x');
    if (name == L"EMPTY") return L"";
    return std::nullopt;
}

TypedAddress Plan(std::wstring_view typed) { return PlanTypedAddress(typed, &FakeEnvironment); }

TEST(TypedAddress, AVariableReplacesTheWholeText) {
    EXPECT_EQ(Plan(L"  %WINDIR%\\system32 ").shellPath, L"C:\\windows") << "what follows the pair is dropped";
    EXPECT_EQ(Plan(L"x%WINDIR%").shellPath, L"C:\\windows");
    EXPECT_EQ(Plan(L"%NOSUCH%\\a").shellPath, L"%NOSUCH%\\a") << "an unknown name leaves the text";
    EXPECT_EQ(Plan(L"%LONG%").shellPath, L"%LONG%") << "a value over 520 characters is not taken";
    EXPECT_EQ(Plan(L"100%").shellPath, L"100%");
    EXPECT_EQ(Plan(L"%%").shellPath, L"%%");
    EXPECT_TRUE(Plan(L"%EMPTY%").parseForms.empty()) << "nothing left to go to";
    EXPECT_EQ(ExpandFirstVariable(L"%WINDIR%", nullptr), L"%WINDIR%");
}

TEST(TypedAddress, FileAndFtpFormsAndBareDriveLetters) {
    EXPECT_EQ(Plan(L"file:///C:/Some%20Dir/").parseForms.front(), L"C:\\Some Dir\\");
    EXPECT_EQ(Plan(L"FILE://server/share").parseForms.front(), L"\\\\server\\share");
    EXPECT_EQ(Plan(L"ftp.example.org").parseForms.front(), L"ftp://ftp.example.org/");
    EXPECT_EQ(Plan(L"FTP.example.org/pub/").parseForms.front(), L"ftp://FTP.example.org/pub/");
    EXPECT_EQ(Plan(L"c").parseForms, (std::vector<std::wstring>{L"c", L"c:\\"}));
    EXPECT_EQ(Plan(L" c: ").parseForms, (std::vector<std::wstring>{L"c:", L"c:\\"}));
    EXPECT_EQ(Plan(L"C:\\x").parseForms, (std::vector<std::wstring>{L"C:\\x"}));
    EXPECT_EQ(Plan(L"C:\\x").shellPath, L"C:\\x");
}

TEST(TypedAddress, BlankAndHugeTextsAreHandled) {
    EXPECT_TRUE(Plan(L"").shellPath.empty());
    EXPECT_TRUE(Plan(L" \t ").parseForms.empty());
    const std::wstring huge(10000, L'a');
    EXPECT_EQ(Plan(huge).parseForms.front().size(), 10000u);
}

}  // namespace
}  // namespace tessel
