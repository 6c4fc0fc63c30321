#include "core/language_packs_win.h"

#include "core/general_options.h"
#include "core/utf8.h"
#include "win/file_system_win.h"
#include "win/text_file_win.h"

namespace tessel {

namespace {

constexpr size_t kLargestLanguageFile = 4 << 20;
constexpr int kLanguageNameId = 62226;  // each pack names its own language

}  // namespace

std::wstring LanguageFilePath(std::wstring_view code) {
    return win::ModuleFolder() + L"\\Tessel-" + std::wstring(code) + L".lng";
}

std::wstring ReadLanguageFile(std::wstring_view code) {
    std::string bytes;
    if (!win::ReadFileBytes(LanguageFilePath(code), kLargestLanguageFile, bytes)) return L"";
    return DecodeTextFile(bytes, DecodeUtf8OrLatin1);
}

std::wstring ResourceLanguagePacks::LoadText(std::wstring_view code) {
    std::wstring file = ReadLanguageFile(code);
    std::wstring packed = BuiltInText(code);
    if (!packed.empty() && packed.front() == 0xFEFF) packed.erase(0, 1);  // the mark would spoil the first line
    if (file.empty()) return packed;
    return file + L"\n" + packed;  // the first line of an id counts: the file's
}

std::vector<AvailableLanguage> AvailableLanguages() {
    static ResourceLanguagePacks packs(GetModuleHandleW(nullptr));
    std::vector<AvailableLanguage> languages;
    for (const int id : LanguageIds()) {
        const std::wstring code = LanguageCode(id);
        const std::wstring text = packs.LoadText(code);
        if (text.empty()) continue;
        StringTable table;
        table.Parse(text);
        const std::wstring* name = table.Find(kLanguageNameId);
        languages.push_back({id, name && !name->empty() ? *name : code});
    }
    return languages;
}

std::wstring ResourceLanguagePacks::BuiltInText(std::wstring_view code) const {
    std::wstring name = std::wstring(code) + L"-STRING";
    HRSRC info = FindResourceW(module_, name.c_str(), L"IMG");
    if (!info) return {};
    HGLOBAL data = LoadResource(module_, info);
    const void* bytes = data ? LockResource(data) : nullptr;
    DWORD size = SizeofResource(module_, info);
    if (!bytes || size < sizeof(wchar_t)) return {};
    // Packs are plain UTF-16LE text; the parser skips the byte-order mark.
    return std::wstring(static_cast<const wchar_t*>(bytes), size / sizeof(wchar_t));
}

Strings& Texts() {
    static ResourceLanguagePacks packs(GetModuleHandleW(nullptr));
    static Strings strings(packs, Options().m_lang_id);
    return strings;
}

std::wstring GetText(int id) { return Texts().GetText(id); }

bool IsCaptionId(const wchar_t* caption, int& id) {
    if (!caption || !*caption) return false;
    int value = 0;
    for (const wchar_t* p = caption; *p; ++p) {
        if (*p < L'0' || *p > L'9' || p - caption > 7) return false;
        value = value * 10 + (*p - L'0');
    }
    id = value;
    return true;
}

void LocalizeMenu(HMENU menu) {
    const int count = GetMenuItemCount(menu);
    for (int i = 0; i < count; ++i) {
        wchar_t caption[64] = {};
        MENUITEMINFOW info{sizeof(info)};
        info.fMask = MIIM_STRING | MIIM_SUBMENU | MIIM_FTYPE;
        info.dwTypeData = caption;
        info.cch = 63;
        if (!GetMenuItemInfoW(menu, i, TRUE, &info)) continue;
        int id = 0;
        if (!(info.fType & MFT_SEPARATOR) && IsCaptionId(caption, id)) {
            std::wstring text = GetText(id);
            MENUITEMINFOW update{sizeof(update)};
            update.fMask = MIIM_STRING;
            update.dwTypeData = text.data();
            SetMenuItemInfoW(menu, i, TRUE, &update);
        }
        if (info.hSubMenu) LocalizeMenu(info.hSubMenu);
    }
}

static BOOL CALLBACK LocalizeChild(HWND child, LPARAM) {
    wchar_t caption[64] = {};
    GetWindowTextW(child, caption, 64);
    int id = 0;
    if (IsCaptionId(caption, id)) SetWindowTextW(child, GetText(id).c_str());
    return TRUE;
}

void LocalizeDialog(HWND dialog) {
    LocalizeChild(dialog, 0);
    EnumChildWindows(dialog, LocalizeChild, 0);
}

}  // namespace tessel
