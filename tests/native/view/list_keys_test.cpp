#include "view/list_keys.h"

#include <gtest/gtest.h>

namespace tessel {

TEST(ListKeys, TheListsOwnKeysAndTheClipboardKeysOnlyWithTheOwnClipboard) {
    using enum ListKeyCommand;
    const auto ctrl = [](int key) { return ListKey{key, true, false, false}; };
    EXPECT_EQ(ListCommandOfKey(ctrl('C'), true), kCopy);
    EXPECT_EQ(ListCommandOfKey(ctrl(0x2D), true), kCopy) << "Ctrl+Insert";
    EXPECT_EQ(ListCommandOfKey(ctrl('X'), true), kCut);
    EXPECT_EQ(ListCommandOfKey(ctrl('V'), true), kPaste);
    EXPECT_EQ(ListCommandOfKey({0x2D, false, true, false}, true), kPaste) << "Shift+Insert";
    EXPECT_EQ(ListCommandOfKey(ctrl('C'), false), kNone) << "the view's own clipboard";
    EXPECT_EQ(ListCommandOfKey({0x2D, false, true, false}, false), kNone);
    EXPECT_EQ(ListCommandOfKey({0x2E}, false), kDelete);
    EXPECT_EQ(ListCommandOfKey({0x2E, false, true, false}, false), kDeleteForever);
    EXPECT_EQ(ListCommandOfKey({0x71}, true), kRename);
    EXPECT_EQ(ListCommandOfKey({0x74}, true), kRefresh);
    EXPECT_EQ(ListCommandOfKey({0x26, false, false, true}, true), kUp);
    EXPECT_EQ(ListCommandOfKey({0x26}, true), kNone) << "Up alone moves in the list";
    EXPECT_EQ(ListCommandOfKey({0x25, false, false, true}, true), kBack);
    EXPECT_EQ(ListCommandOfKey({0x27, false, false, true}, true), kForward);
    EXPECT_EQ(ListCommandOfKey(ctrl('A'), false), kSelectAll);
    EXPECT_EQ(ListCommandOfKey({'A'}, true), kNone);
}

}  // namespace tessel
