#pragma once
// A page of plain options: check boxes, drop-down choices and numbers, made from one table of
// option_pages.h. Each change is written at once and handed to the window to apply.
#include <windows.h>

#include "frame/option_pages.h"
#include "frame/options_dialog_win.h"

namespace tessel {

class CSwitchesPage final : public IOptionsPage {
public:
    CSwitchesPage(const OptionPageTable& table, IOptionHost* host) : table_(table), host_(host) {}

    int TitleId() const override { return table_.titleId; }
    int DialogId() const override;
    void Init(HWND page) override;
    bool Command(HWND page, int id, int code) override;
    bool Notify(HWND, NMHDR*, LRESULT&) override { return false; }

    // The control showing item `index` of the table.
    static int ControlId(size_t index) { return kFirstControl + static_cast<int>(index); }

private:
    static constexpr int kFirstControl = 3000;

    int Stored(const OptionItem& item) const;
    void Store(const OptionItem& item, int value);
    HWND MakeControl(const wchar_t* type, DWORD style, RECT units, int id, const std::wstring& text);
    void MakeLabelled(size_t index, int top);
    void MakeCheck(size_t index, RECT units);

    const OptionPageTable& table_;
    IOptionHost* host_;
    HWND page_ = nullptr;
    bool filling_ = false;
};

}  // namespace tessel
