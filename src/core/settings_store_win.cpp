#include "core/settings_store_win.h"

#include <windows.h>
#include <mmsystem.h>
#include <shlobj.h>

#include <memory>
#include <set>
#include <vector>

#include "core/settings_text.h"
#include "win/handles_win.h"
#include "win/text_file_win.h"

namespace tessel {
namespace {

std::wstring ModulePath() {
    wchar_t path[MAX_PATH] = {};
    GetModuleFileNameW(nullptr, path, MAX_PATH);
    return path;
}

std::wstring Z(std::wstring_view s) { return std::wstring(s); }  // terminated copy for the API

class FileProbe : public ILocationProbe {
public:
    bool CanOpenForRead(const std::wstring& path) override {
        win::UniqueHandle file(CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING,
                                           FILE_ATTRIBUTE_NORMAL, nullptr));
        return static_cast<bool>(file);
    }
    bool RelativeFileExists(const std::wstring& name) override { return CanOpenForRead(name); }
};

std::wstring AppDataTessel() {
    wchar_t folder[MAX_PATH] = {};
    if (FAILED(SHGetFolderPathW(nullptr, CSIDL_APPDATA, nullptr, SHGFP_TYPE_CURRENT, folder))) return {};
    return std::wstring(folder) + L"\\Tessel";
}

std::unique_ptr<CMyProfStr> g_settings;

constexpr size_t kSettingsFileReadLimit = 64u << 20;

// The files made sure to exist as UTF-16 in this process.
std::set<std::wstring>& Ensured() {
    static std::set<std::wstring> ensured;
    return ensured;
}

void ForgetEnsured(const std::wstring& path) { Ensured().erase(path); }

// Bare names live in the Windows folder, as the profile functions place them.
std::wstring FullIniPath(const std::wstring& path) {
    if (path.find(L'\\') != std::wstring::npos) return path;
    wchar_t windows[MAX_PATH] = {};
    GetWindowsDirectoryW(windows, MAX_PATH);
    return std::wstring(windows) + L"\\" + path;
}

}  // namespace

CMyProfStr::CMyProfStr() : CMyProfStr(ModulePath()) {}

CMyProfStr::CMyProfStr(const std::wstring& exePath) : exeFolder_(FolderOf(exePath)) {
    FileProbe probe;
    location_ = ChooseSettingsLocation(exePath, probe);
    SetAsideIfUnreadable();
    if (location_.writeTestNeeded) RunWriteTest();
}

std::wstring CMyProfStr::FullSettingsPath() const { return FullIniPath(location_.filePath); }

// A file the profile functions would read as nothing would be overwritten by defaults at the first
// write: it is kept as "<name>.bad" instead, and the start tells the user.
void CMyProfStr::SetAsideIfUnreadable() {
    const std::wstring path = FullSettingsPath();
    std::string bytes;
    if (!win::ReadFileBytes(path, kSettingsFileReadLimit, bytes) || SettingsTextReadable(bytes)) return;
    const std::wstring aside = path + L".bad";
    if (!MoveFileExW(path.c_str(), aside.c_str(), MOVEFILE_REPLACE_EXISTING)) return;
    ForgetEnsured(location_.filePath);
    setAside_ = aside;
}

void CMyProfStr::RunWriteTest() {
    const std::wstring written = FormatInt(static_cast<int>(timeGetTime()));
    PutString(L"Start", L"chk_ini", written);
    const std::wstring read = GetString(L"Start", L"chk_ini", L"0");
    if (read == written) return;
    // Not writable where it was looked for: keep the settings per user instead.
    std::wstring folder = AppDataTessel();
    if (folder.empty()) return;
    CreateDirectoryW(folder.c_str(), nullptr);
    location_.filePath = folder + L"\\" + location_.baseName + L".ini";
    movedToUserFolder_ = true;
}

std::wstring CMyProfStr::GetString(std::wstring_view section, std::wstring_view key, std::wstring_view def) {
    wchar_t buffer[kSettingsValueLimit];
    GetPrivateProfileStringW(Z(section).c_str(), Z(key).c_str(), Z(def).c_str(), buffer, kSettingsValueLimit,
                             location_.filePath.c_str());
    return buffer;
}

bool CMyProfStr::PutString(std::wstring_view section, std::wstring_view key, std::wstring_view value) {
    EnsureUnicodeIniFile(location_.filePath);
    return WritePrivateProfileStringW(Z(section).c_str(), Z(key).c_str(), Z(value).c_str(),
                                      location_.filePath.c_str()) != FALSE;
}

bool CMyProfStr::PutIntTo(const std::wstring& file, std::wstring_view section, std::wstring_view key, int value) {
    if (file.empty()) return PutInt(section, key, value);
    EnsureUnicodeIniFile(file);
    return WritePrivateProfileStringW(Z(section).c_str(), Z(key).c_str(), FormatInt(value).c_str(), file.c_str()) !=
           FALSE;
}

std::wstring CMyProfStr::GetSection(std::wstring_view section) { return GetSectionOf(location_.filePath, section); }

std::wstring CMyProfStr::GetSectionOf(const std::wstring& file, std::wstring_view section) {
    std::vector<wchar_t> buffer(8192);
    DWORD length = 0;
    for (;;) {
        length = GetPrivateProfileSectionW(Z(section).c_str(), buffer.data(), static_cast<DWORD>(buffer.size()),
                                           file.c_str());
        if (length + 2 < buffer.size() || buffer.size() >= (1u << 24)) break;
        buffer.resize(buffer.size() * 4);
    }
    std::wstring lines(buffer.data(), length);
    for (wchar_t& c : lines)
        if (c == L'\0') c = L'\n';
    return lines;
}

bool CMyProfStr::PutSection(std::wstring_view section, std::wstring_view lines) {
    std::wstring block(lines);
    for (wchar_t& c : block)
        if (c == L'\n') c = L'\0';
    block.append(2, L'\0');
    EnsureUnicodeIniFile(location_.filePath);
    return WritePrivateProfileSectionW(Z(section).c_str(), block.c_str(), location_.filePath.c_str()) != FALSE;
}

std::wstring CMyProfStr::RegistryKey() const { return L"Software\\Vendorix\\" + location_.baseName; }

int CMyProfStr::RegGetInt(std::wstring_view name, int defaultValue) {
    if (location_.fileMode) return defaultValue;
    HKEY key = nullptr;
    if (RegOpenKeyExW(HKEY_CURRENT_USER, RegistryKey().c_str(), 0, KEY_READ, &key) != ERROR_SUCCESS)
        return defaultValue;
    wchar_t buffer[kSettingsValueLimit] = {};
    DWORD bytes = sizeof(buffer) - sizeof(wchar_t);
    DWORD type = 0;
    LONG status = RegQueryValueExW(key, Z(name).c_str(), nullptr, &type, reinterpret_cast<BYTE*>(buffer), &bytes);
    RegCloseKey(key);
    if (status != ERROR_SUCCESS || type != REG_SZ || buffer[0] == L'\0') return defaultValue;
    return ParseLeadingInt(buffer);
}

bool CMyProfStr::RegPutInt(std::wstring_view name, int value) {
    if (location_.fileMode) return false;
    HKEY key = nullptr;
    if (RegCreateKeyExW(HKEY_CURRENT_USER, RegistryKey().c_str(), 0, nullptr, 0, KEY_WRITE, nullptr, &key, nullptr) !=
        ERROR_SUCCESS)
        return false;
    std::wstring text = FormatInt(value);
    LONG status = RegSetValueExW(key, Z(name).c_str(), 0, REG_SZ, reinterpret_cast<const BYTE*>(text.c_str()),
                                 static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t)));
    RegCloseKey(key);
    return status == ERROR_SUCCESS;
}

std::wstring CMyProfStr::DataFolder() const {
    // A portable copy in a read-only folder keeps its last state where its settings went.
    if (location_.fileMode && !movedToUserFolder_) return exeFolder_;
    std::wstring folder = AppDataTessel();
    if (folder.empty()) return exeFolder_;
    CreateDirectoryW(folder.c_str(), nullptr);
    return folder;
}

bool EnsureUnicodeIniFile(const std::wstring& path) {
    // Once per file and process: every settings write would otherwise open the file once more.
    std::set<std::wstring>& ensured = Ensured();
    if (ensured.contains(path)) return true;
    const std::wstring full = FullIniPath(path);
    // CREATE_NEW never touches an existing file, so a user's file keeps its encoding.
    win::UniqueHandle file(
        CreateFileW(full.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr));
    if (!file) {
        if (GetLastError() == ERROR_FILE_EXISTS) ensured.insert(path);  // a user's file keeps its encoding
        return false;
    }
    const unsigned char bom[2] = {0xFF, 0xFE};
    DWORD written = 0;
    const bool ok = WriteFile(file.get(), bom, sizeof(bom), &written, nullptr) && written == sizeof(bom);
    if (ok) ensured.insert(path);
    return ok;
}

CMyProfStr& Settings() { return *g_settings; }
void CreateSettings() { g_settings = std::make_unique<CMyProfStr>(); }
void CreateSettings(const std::wstring& exePath) { g_settings = std::make_unique<CMyProfStr>(exePath); }
void DestroySettings() { g_settings.reset(); }

}  // namespace tessel
