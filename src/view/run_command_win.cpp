// User-defined commands carried out by the browser view: quick-links and program entries, and
// the program the association list names for a file that is opened.
#include <windows.h>
#include <commctrl.h>
#include <shellapi.h>
#include <shlobj.h>
#include <shlwapi.h>

#include "core/settings_store_win.h"
#include "features/quick_links.h"
#include "view/command_placeholders.h"
#include "view/command_placeholders_win.h"
#include "view/shell_browser_win.h"
#include "win/file_system_win.h"
#include "win/shell_item_win.h"

namespace tessel {
namespace {

class SystemPathVariables : public IPathVariables {
public:
    std::wstring Folder(PathVariable which) override {
        wchar_t path[MAX_PATH] = {};
        switch (which) {
        case PathVariable::kSystem:
            GetSystemDirectoryW(path, MAX_PATH);
            break;
        case PathVariable::kWindows:
            GetWindowsDirectoryW(path, MAX_PATH);
            break;
        case PathVariable::kProgramFile:
            return win::ModulePath();
        case PathVariable::kDesktop:
            return Special(CSIDL_DESKTOP);
        case PathVariable::kAppData:
            return Special(CSIDL_APPDATA);
        case PathVariable::kPersonal:
            return Special(CSIDL_PERSONAL);
        }
        return path;
    }

private:
    static std::wstring Special(int csidl) {
        wchar_t path[MAX_PATH] = {};
        return SUCCEEDED(SHGetFolderPathW(nullptr, csidl, nullptr, SHGFP_TYPE_CURRENT, path)) ? path : L"";
    }
};

// The list of the view that runs the command, read when a placeholder asks for it.
class ViewPlaceholders : public IPlaceholderView {
public:
    explicit ViewPlaceholders(const CMyShellBrowser& browser) : browser_(browser) {}
    std::wstring MarkedItemPath() override {
        HWND list = browser_.GetListControl();
        return list ? PathAt(static_cast<int>(SendMessageW(list, LVM_GETSELECTIONMARK, 0, 0))) : L"";
    }
    // One question to the view for all items; each name then comes from its own identifier.
    std::wstring QuotedItemPaths(bool selectedOnly) override {
        std::wstring list;
        IShellFolder* folder = browser_.ShownFolder();
        if (!folder) return list;
        std::wstring path = FolderPath(browser_);
        if (!path.empty() && path.back() != L'\\') path += L'\\';
        const size_t base = path.size();
        browser_.ForEachViewItem(selectedOnly, [&](PCUITEMID_CHILD child) {
            WIN32_FIND_DATAW data;
            data.cFileName[0] = 0;
            if (SUCCEEDED(SHGetDataFromIDListW(folder, child, SHGDFIL_FINDDATA, &data, sizeof(data))) && data.cFileName[0]) {
                path.resize(base);
                path += data.cFileName;
                AppendQuotedPath(list, path);
                return;
            }
            STRRET name{};
            wchar_t text[MAX_PATH] = {};
            if (SUCCEEDED(folder->GetDisplayNameOf(child, SHGDN_FORPARSING, &name)) &&
                SUCCEEDED(StrRetToBufW(&name, child, text, MAX_PATH)) && text[0])
                AppendQuotedPath(list, text);
        });
        return list;
    }
    std::wstring CurrentFolder() override { return FolderPath(browser_); }

    static std::wstring FolderPath(const CMyShellBrowser& browser) {
        const std::wstring path = browser.Current() ? win::FileSystemPathOf(browser.Current()) : std::wstring();
        return path.empty() ? browser.CurrentPath() : path;
    }

private:
    std::wstring PathAt(int index) const {
        win::ComPtr<IFolderView> view = browser_.View() ? win::ComPtr<IShellView>(browser_.View()).As<IFolderView>()
                                                        : win::ComPtr<IFolderView>();
        PITEMID_CHILD child = nullptr;
        if (index < 0 || !view || FAILED(view->Item(index, &child)) || !child) return {};
        win::UniquePidl full(ILCombine(browser_.Current(), child));
        CoTaskMemFree(child);
        return full ? win::FileSystemPathOf(full.get()) : std::wstring();
    }
    const CMyShellBrowser& browser_;
};

std::wstring Unquoted(std::wstring text) {
    while (!text.empty() && text.back() == L' ') text.pop_back();
    if (text.size() >= 2 && text.front() == L'"' && text.back() == L'"') text = text.substr(1, text.size() - 2);
    return text;
}

}  // namespace

void ExpandSystemPathVariables(std::wstring& text) {
    SystemPathVariables folders;
    ExpandPathVariables(folders, text);
}

std::wstring CMyShellBrowser::ExpandCommand(const std::wstring& command) const {
    std::wstring text = command;
    ExpandSystemPathVariables(text);
    ViewPlaceholders placeholders(*this);
    ExpandViewPlaceholders(placeholders, text);
    if (!text.empty() && text[0] == kNoExpansionMark) text.erase(0, 1);  // taken as written
    return text;
}

bool CMyShellBrowser::RunUserCommand(const std::wstring& command) {
    const std::wstring text = ExpandCommand(command);
    const std::wstring folder = Unquoted(text);
    if (win::IsDirectory(folder)) return NavigateToText(folder);
    const CommandParts parts = SplitCommand(text, win::IsExistingFile);
    if (parts.program.empty()) return false;
    const std::wstring directory = ViewPlaceholders::FolderPath(*this);
    const auto result = reinterpret_cast<INT_PTR>(ShellExecuteW(hwnd(), L"open", parts.program.c_str(),
                                                                parts.arguments.empty() ? nullptr : parts.arguments.c_str(),
                                                                directory.empty() ? nullptr : directory.c_str(), SW_SHOWNORMAL));
    return result > 32;
}

// A file whose type the association list names is opened by that program, with the file as its
// argument unless the entry places the selection itself.
bool CMyShellBrowser::OpenByAssociation(const std::wstring& filePath) {
    const std::vector<QuickLinkEntry> associations = ReadQuickLinks(Settings(), kAssociationSection);
    std::wstring program = AssociatedProgram(associations, filePath);
    if (program.empty()) return false;
    if (program.find(L"%sel_file") == std::wstring::npos && program.find(L"%all_files%") == std::wstring::npos)
        program += L" \"" + filePath + L"\"";
    return RunUserCommand(program);
}

}  // namespace tessel
