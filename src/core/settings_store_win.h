#pragma once
// The settings store on Windows: one INI file through the private-profile functions, no cache,
// every put on disk when it returns; a few install-time values in the registry.
#include <string>

#include "core/settings_location.h"
#include "core/settings_store.h"

namespace tessel {

class CMyProfStr : public ISettingsStore {
public:
    CMyProfStr();  // locates the settings file from this executable's path
    explicit CMyProfStr(const std::wstring& exePath);  // the same rules for another path

    std::wstring GetString(std::wstring_view section, std::wstring_view key, std::wstring_view defaultText) override;
    bool PutString(std::wstring_view section, std::wstring_view key, std::wstring_view value) override;
    std::wstring GetSection(std::wstring_view section) override;
    bool PutSection(std::wstring_view section, std::wstring_view lines) override;
    bool IsFileMode() const override { return location_.fileMode; }
    int RegGetInt(std::wstring_view name, int defaultValue) override;
    bool RegPutInt(std::wstring_view name, int value) override;

    // The same operations on another INI-style file of ours (folder sets, lists).
    bool PutIntTo(const std::wstring& file, std::wstring_view section, std::wstring_view key, int value);
    std::wstring GetSectionOf(const std::wstring& file, std::wstring_view section);

    const std::wstring& SettingsPath() const { return location_.filePath; }
    // The settings file with its folder, also when the platform places a bare name.
    std::wstring FullSettingsPath() const;
    // Where an unreadable settings file was set aside at construction, else "".
    const std::wstring& SetAsidePath() const { return setAside_; }
    const std::wstring& BaseName() const { return location_.baseName; }
    const std::wstring& ConfigName() const { return location_.configName; }
    const std::wstring& ExeFolder() const { return exeFolder_; }
    // The executable's folder in portable use, else the per-user "...\Tessel" (created on demand).
    std::wstring DataFolder() const;

private:
    void RunWriteTest();
    void SetAsideIfUnreadable();
    std::wstring RegistryKey() const;

    SettingsLocation location_;
    std::wstring exeFolder_;
    bool movedToUserFolder_ = false;  // the write test found the portable file read-only
    std::wstring setAside_;
};

// Creates a missing INI-style file as UTF-16LE with a byte-order mark, so that the profile
// functions keep characters outside the ANSI code page. Bare names live in the Windows folder.
bool EnsureUnicodeIniFile(const std::wstring& path);

// The process-wide store, created at start-up before anything reads a setting.
CMyProfStr& Settings();
void CreateSettings();
void CreateSettings(const std::wstring& exePath);  // as if the program were at exePath
void DestroySettings();

}  // namespace tessel
