#pragma once
// The last state ("start.tsf" in the data folder): loaded at start under the crash-start guard,
// saved once at exit, and handed to a further instance as "start2.tsf".
#include <functional>
#include <string>

#include "core/settings_store.h"

namespace tessel {

class IFileRemover {
public:
    virtual ~IFileRemover() = default;
    virtual bool Remove(const std::wstring& path) = 0;
};

std::wstring LastStatePath(const std::wstring& dataFolder);     // data folder + "\start.tsf"
std::wstring HandOverStatePath(const std::wstring& dataFolder);  // data folder + "\start2.tsf"

using FolderSetLoader = std::function<bool(const std::wstring& path)>;

// A "StartCrash" left at 1 means the previous load never came back: the file is deleted unread.
// Returns whether the last state was loaded. With `leaveOpen` the flag stays 1 when the load
// returns, since the load left work for later (views made once the window shows);
// EndLastStateLoad writes 0 when that is done.
bool LoadLastStateGuarded(ISettingsStore& store, const std::wstring& dataFolder, IFileRemover& remover,
                          const FolderSetLoader& load, bool leaveOpen = false);
void EndLastStateLoad(ISettingsStore& store);  // writes 0 when the flag is 1

// Saves only when the start mode reopens the last state: once at exit, and while the program
// runs after changes (so that a crash costs seconds, not the session's arrangement).
class LastStateSaver {
public:
    explicit LastStateSaver(std::function<bool(const std::wstring& path)> save) : save_(std::move(save)) {}
    void SaveOnce(int startMode, const std::wstring& dataFolder);
    // A save before the exit; the one at exit still follows. False when nothing was written.
    bool SaveNow(int startMode, const std::wstring& dataFolder);
    bool HasRun() const { return ran_; }

private:
    std::function<bool(const std::wstring&)> save_;
    bool ran_ = false;
};

}  // namespace tessel
