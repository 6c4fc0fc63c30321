#pragma once
// The colour page of the options dialog: the colour rules as a list to edit, the schemes, the
// rules file, the effective order of the tokens.
#include "core/options_page_win.h"
#include "features/colour_rules.h"

#include <string>
#include <vector>

namespace tessel {

class CFarbenOpt final : public IOptionsPage {
public:
    int TitleId() const override;
    int DialogId() const override;
    void Init(HWND page) override;
    bool Command(HWND page, int id, int code) override;
    bool Notify(HWND page, NMHDR* header, LRESULT& result) override;

private:
    void Fill();                     // the rows from the program's rules
    void SaveFromPage();             // the program's rules from the rows, written and shown
    void AddRow(const std::vector<std::wstring>& cells, bool enabled, int at = -1);
    std::vector<std::wstring> Cells(int row) const;
    void MoveSelected(int step);
    void OnDoubleClick(int row, int column);
    void ExportRules();
    void ImportRules();
    void ChooseScheme();
    void ShowListMenu(POINT screenPoint);
    void ExportTabSeparated();
    void ImportTabSeparated();
    void ShowRules(const std::vector<ColourRule>& rules);  // replaces the list and keeps it
    int Selected() const;

    HWND page_ = nullptr;
    HWND list_ = nullptr;
    bool filling_ = false;  // check box changes while filling are no edits
};

}  // namespace tessel
