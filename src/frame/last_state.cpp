#include "frame/last_state.h"

#include "frame/command_line.h"

namespace tessel {

std::wstring LastStatePath(const std::wstring& dataFolder) { return dataFolder + L"\\start.tsf"; }
std::wstring HandOverStatePath(const std::wstring& dataFolder) { return dataFolder + L"\\start2.tsf"; }

bool LoadLastStateGuarded(ISettingsStore& store, const std::wstring& dataFolder, IFileRemover& remover,
                          const FolderSetLoader& load, bool leaveOpen) {
    const std::wstring path = LastStatePath(dataFolder);
    if (store.GetInt(L"Start", L"StartCrash", 0) == 1) {
        store.PutInt(L"Start", L"StartCrash", 0);
        remover.Remove(path);
        return false;
    }
    store.PutInt(L"Start", L"StartCrash", 1);
    bool loaded = load(path);
    if (!leaveOpen) store.PutInt(L"Start", L"StartCrash", 0);
    return loaded;
}

void EndLastStateLoad(ISettingsStore& store) {
    if (store.GetInt(L"Start", L"StartCrash", 0) == 1) store.PutInt(L"Start", L"StartCrash", 0);
}

void LastStateSaver::SaveOnce(int startMode, const std::wstring& dataFolder) {
    if (ran_) return;
    SaveNow(startMode, dataFolder);
    ran_ = true;
}

bool LastStateSaver::SaveNow(int startMode, const std::wstring& dataFolder) {
    return !ran_ && startMode == kStartModeLastState && save_(LastStatePath(dataFolder));
}

}  // namespace tessel
