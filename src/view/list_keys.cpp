#include "view/list_keys.h"

namespace tessel {
namespace {

// The platform's virtual-key codes of the keys below.
constexpr int kKeyInsert = 0x2D, kKeyDelete = 0x2E, kKeyF2 = 0x71, kKeyF5 = 0x74, kKeyLeft = 0x25, kKeyUp = 0x26,
              kKeyRight = 0x27;

}  // namespace

ListKeyCommand ListCommandOfKey(const ListKey& k, bool ownClipboard) {
    using enum ListKeyCommand;
    if (ownClipboard && k.control) {
        if (k.key == 'C' || k.key == kKeyInsert) return kCopy;
        if (k.key == 'X') return kCut;
        if (k.key == 'V') return kPaste;
    }
    if (ownClipboard && k.shift && k.key == kKeyInsert) return kPaste;
    if (k.key == kKeyDelete) return k.shift ? kDeleteForever : kDelete;
    if (k.key == kKeyF2) return kRename;
    if (k.key == kKeyF5) return kRefresh;
    if (k.alt && k.key == kKeyUp) return kUp;
    if (k.alt && k.key == kKeyLeft) return kBack;
    if (k.alt && k.key == kKeyRight) return kForward;
    if (k.control && k.key == 'A') return kSelectAll;
    return kNone;
}

}  // namespace tessel
