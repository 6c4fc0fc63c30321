#pragma once
// The lists page of the options dialog: the "Programs", "Quick-Links" and "Association" lists,
// one at a time, with adding, changing, removing, ordering, switching a menu off, and the
// tab-separated export and import. Every change is written at once.
#include <windows.h>

#include <vector>

#include "core/options_page_win.h"
#include "features/quick_links.h"

namespace tessel {

class CListsOpt final : public IOptionsPage {
public:
    int TitleId() const override;
    int DialogId() const override;
    void Init(HWND page) override;
    bool Command(HWND page, int id, int code) override;
    bool Notify(HWND page, NMHDR* header, LRESULT& result) override;

private:
    const wchar_t* Section() const;
    void Load();                  // the chosen list into the page
    void Save();                  // the entries written and the page shown again
    void ShowEntries(int select);
    QuickLinkEntry Edited() const;  // the name and target fields
    void Move(int step);
    void Export();
    void Import();
    bool Storable(const QuickLinkEntry& entry) const;  // says why when not
    int Selected() const;

    HWND page_ = nullptr;
    HWND list_ = nullptr;
    int which_ = 0;  // 0 programs, 1 quick-links, 2 associations
    std::vector<QuickLinkEntry> entries_;
};

}  // namespace tessel
