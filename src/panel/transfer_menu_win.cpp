// The T-View's transfer menu and the copy-to and move-to lists: another T-View takes this one's
// folder (with view settings, history and selection as ticked), or its selected files.
#include <windows.h>

#include <cwchar>

#include "core/language_packs_win.h"
#include "core/settings_store_win.h"
#include "res/resource.h"
#include "panel/view_panel_win.h"

namespace tessel {
namespace {

constexpr wchar_t kTransferSection[] = L"Transfer";
struct TransferChoice {
    UINT command;
    const wchar_t* key;
    int text;
};
constexpr TransferChoice kChoices[] = {
    {ID_TRANSFER_VIEW_SET, L"view_set", 281},
    {ID_TRANSFER_HISTORY, L"hystori", 282},
    {ID_TRANSFER_SELECTION, L"selection", 283},
};

bool Chosen(const wchar_t* key) { return Settings().GetInt(kTransferSection, key, 1) != 0; }

}  // namespace

win::UniqueMenu CPloder::BuildTransferMenu(UINT kind) const {
    win::UniqueMenu menu(CreatePopupMenu());
    if (!menu) return menu;
    if (kind == ID_TRANSFER) {
        AppendMenuW(menu.get(), MF_STRING, ID_TRANSFER, GetText(ID_TRANSFER).c_str());
        for (const TransferChoice& choice : kChoices)
            AppendMenuW(menu.get(), MF_STRING | (Chosen(choice.key) ? MF_CHECKED : 0), choice.command,
                        GetText(choice.text).c_str());
        AppendMenuW(menu.get(), MF_SEPARATOR, 0, nullptr);
    }
    for (int index = 0; index < 4; ++index) {
        wchar_t name[64];
        std::swprintf(name, 64, GetText(IDS_VIEW_NUMBER).c_str(), index + 1);
        const bool usable = UsableTarget(index) != nullptr;
        AppendMenuW(menu.get(), MF_STRING | (usable ? 0 : MF_GRAYED), ID_TRANSFER_VIEW_FIRST + index, name);
    }
    return menu;
}

// Another T-View that shows a folder and that the layout shows: a hidden one is not offered.
CPloder* CPloder::UsableTarget(int index) const {
    CPloder* target = index >= 0 && index < 4 && index != viewIndex_ && peers_ ? peers_(index) : nullptr;
    return target && target->HasLocation() && IsWindowVisible(target->hwnd()) ? target : nullptr;
}

void CPloder::RunTransferCommand(UINT kind, UINT command) {
    if (command == ID_TRANSFER) {
        MessageBoxW(hwnd(), GetText(184).c_str(), GetText(60000).c_str(), MB_OK | MB_ICONINFORMATION);
        return;
    }
    for (const TransferChoice& choice : kChoices)
        if (command == choice.command) {
            Settings().PutInt(kTransferSection, choice.key, Chosen(choice.key) ? 0 : 1);
            return;
        }
    const int index = static_cast<int>(command) - ID_TRANSFER_VIEW_FIRST;
    CPloder* target = UsableTarget(index);
    if (!target || !active_ || !target->Active()) return;
    if (kind == ID_TRANSFER) {
        active_->TransferTo(*target->Active(), Chosen(L"view_set"), Chosen(L"hystori"), Chosen(L"selection"));
        target->BrowserNavigated(*target->Active());
        return;
    }
    // Handed over directly: the user's clipboard is neither read nor changed.
    const ClipboardFiles files{active_->SelectedPaths(), kind == ID_COPY_TO_VIEW ? DWORD(DROPEFFECT_COPY) : DWORD(DROPEFFECT_MOVE)};
    if (files.paths.empty()) return;
    if (target->Active()->TakeFiles(files) && files.effect == DROPEFFECT_MOVE) active_->RefreshKeepingPlace();
}

void CPloder::ShowTransferMenu(UINT kind, POINT screen) {
    win::UniqueMenu menu = BuildTransferMenu(kind);
    if (!menu) return;
    const UINT command = TrackPopupMenu(menu.get(), TPM_RETURNCMD, screen.x, screen.y, 0, hwnd(), nullptr);
    if (command) RunTransferCommand(kind, command);
}

}  // namespace tessel
