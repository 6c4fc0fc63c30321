#include "win/registry_win.h"

#include <shlwapi.h>

namespace tessel::win {
namespace {

class Key {
public:
    Key() = default;
    Key(const Key&) = delete;
    Key& operator=(const Key&) = delete;
    ~Key() {
        if (key_) RegCloseKey(key_);
    }
    bool Create(HKEY root, const std::wstring& path) {
        return RegCreateKeyExW(root, path.c_str(), 0, nullptr, 0, KEY_WRITE, nullptr, &key_, nullptr) == ERROR_SUCCESS;
    }
    bool Open(HKEY root, const std::wstring& path) {
        return RegOpenKeyExW(root, path.c_str(), 0, KEY_READ, &key_) == ERROR_SUCCESS;
    }
    HKEY get() const { return key_; }

private:
    HKEY key_ = nullptr;
};

}  // namespace

bool SetRegString(HKEY root, const std::wstring& path, const wchar_t* name, const std::wstring& value) {
    Key key;
    return key.Create(root, path) &&
           RegSetValueExW(key.get(), name, 0, REG_SZ, reinterpret_cast<const BYTE*>(value.c_str()),
                          static_cast<DWORD>((value.size() + 1) * sizeof(wchar_t))) == ERROR_SUCCESS;
}

bool SetRegNumber(HKEY root, const std::wstring& path, const wchar_t* name, DWORD value) {
    Key key;
    return key.Create(root, path) &&
           RegSetValueExW(key.get(), name, 0, REG_DWORD, reinterpret_cast<const BYTE*>(&value), sizeof(value)) ==
               ERROR_SUCCESS;
}

bool GetRegString(HKEY root, const std::wstring& path, const wchar_t* name, std::wstring& value) {
    Key key;
    if (!key.Open(root, path)) return false;
    DWORD type = 0, bytes = 0;
    if (RegQueryValueExW(key.get(), name, nullptr, &type, nullptr, &bytes) != ERROR_SUCCESS ||
        (type != REG_SZ && type != REG_EXPAND_SZ))
        return false;
    std::wstring text(bytes / sizeof(wchar_t) + 1, L'\0');
    bytes = static_cast<DWORD>(text.size() * sizeof(wchar_t));
    if (RegQueryValueExW(key.get(), name, nullptr, &type, reinterpret_cast<BYTE*>(text.data()), &bytes) != ERROR_SUCCESS)
        return false;
    text.resize(wcsnlen(text.c_str(), text.size()));
    value = std::move(text);
    return true;
}

bool RegKeyExists(HKEY root, const std::wstring& path) {
    Key key;
    return key.Open(root, path);
}

bool DeleteRegTree(HKEY root, const std::wstring& path) {
    SHDeleteKeyW(root, path.c_str());
    return !RegKeyExists(root, path);
}

}  // namespace tessel::win
