#include "nav/drop_text.h"

#include <gtest/gtest.h>

namespace tessel {
namespace {

TEST(DropText, KindByTheLastFourCharacters) {
    EXPECT_EQ(KindOfDroppedFile(L"C:\\links\\Site.URL"), DroppedFileKind::kInternetShortcut);
    EXPECT_EQ(KindOfDroppedFile(L"C:\\links\\Tool.lnk"), DroppedFileKind::kShellLink);
    EXPECT_EQ(KindOfDroppedFile(L"C:\\docs\\url"), DroppedFileKind::kPlain);
    EXPECT_EQ(KindOfDroppedFile(L".url"), DroppedFileKind::kInternetShortcut);
    EXPECT_EQ(KindOfDroppedFile(L"url"), DroppedFileKind::kPlain);
    EXPECT_EQ(KindOfDroppedFile(L""), DroppedFileKind::kPlain);
    EXPECT_EQ(KindOfDroppedFile(L"C:\\a.url.txt"), DroppedFileKind::kPlain);
}

}  // namespace
}  // namespace tessel
