#pragma once
// The language packs carried in the executable, and the captions of menus and dialogs, which
// hold decimal string ids in the resources and get their texts when shown.
#include <windows.h>

#include <string>
#include <vector>

#include "core/string_table.h"

namespace tessel {

// A language file beside the program ("Tessel-<code>.lng") comes first; the pack the program
// carries fills what it leaves out. So a translator's file works without a new build, and a
// language without a pack of its own works from its file alone.
class ResourceLanguagePacks : public ILanguagePacks {
public:
    explicit ResourceLanguagePacks(HMODULE module) : module_(module) {}
    std::wstring LoadText(std::wstring_view code) override;
    std::wstring BuiltInText(std::wstring_view code) const;

private:
    HMODULE module_;
};

std::wstring LanguageFilePath(std::wstring_view code);  // beside the program
std::wstring ReadLanguageFile(std::wstring_view code);  // "" when there is none

struct AvailableLanguage {
    int id = 0;            // the value of m_lang_id
    std::wstring name;     // in its own words (string 62226 of its pack), else its code
};
// The languages with a pack in the program or a file beside it, by number.
std::vector<AvailableLanguage> AvailableLanguages();

// The process-wide texts, in the language chosen by the general options.
Strings& Texts();
std::wstring GetText(int id);

// A caption that is a decimal number is a string id.
bool IsCaptionId(const wchar_t* caption, int& id);
void LocalizeMenu(HMENU menu);
void LocalizeDialog(HWND dialog);

}  // namespace tessel
