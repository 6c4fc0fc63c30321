#pragma once
// The language packs carried in the executable, and the captions of menus and dialogs, which
// hold decimal string ids in the resources and get their texts when shown.
#include <windows.h>

#include <string>

#include "core/string_table.h"

namespace tessel {

class ResourceLanguagePacks : public ILanguagePacks {
public:
    explicit ResourceLanguagePacks(HMODULE module) : module_(module) {}
    std::wstring LoadText(std::wstring_view code) override;

private:
    HMODULE module_;
};

// The process-wide texts, in the language chosen by the general options.
Strings& Texts();
std::wstring GetText(int id);

// A caption that is a decimal number is a string id.
bool IsCaptionId(const wchar_t* caption, int& id);
void LocalizeMenu(HMENU menu);
void LocalizeDialog(HWND dialog);

}  // namespace tessel
