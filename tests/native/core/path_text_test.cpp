// Paths past the old limit go to the file functions in their long form; the rest as they are.
#include <gtest/gtest.h>

#include "core/path_text.h"

namespace tessel {
namespace {

TEST(PathText, LongPathsTakeTheirLongFormOnce) {
    const std::wstring deep = L"C:\\" + std::wstring(250, L'x');
    EXPECT_EQ(LongPathForm(deep), L"\\\\?\\" + deep);
    EXPECT_EQ(LongPathForm(LongPathForm(deep)), L"\\\\?\\" + deep) << "never twice";
    const std::wstring share = L"\\\\server\\share\\" + std::wstring(250, L'y');
    EXPECT_EQ(LongPathForm(share), L"\\\\?\\UNC\\server\\share\\" + std::wstring(250, L'y'));
    EXPECT_EQ(LongPathForm(L"C:\\short"), L"C:\\short");
    const std::wstring relative = std::wstring(300, L'z');
    EXPECT_EQ(LongPathForm(relative), relative) << "only a full path has a long form";
    std::wstring joined = L"C:\\\\a\\\\b";
    CollapseBackslashes(joined);
    EXPECT_EQ(joined, L"C:\\a\\b");
}

}  // namespace
}  // namespace tessel
