#include "core/help_win.h"

#include <windows.h>
#include <shellapi.h>
#include <shlwapi.h>

#include "core/help_anchor.h"
#include "win/file_system_win.h"

namespace tessel {
namespace {

std::wstring HelpPagePath() {
    return win::ModuleFolder() + L"\\help\\index.html";
}

std::wstring FileUrl(const std::wstring& path) {
    wchar_t url[2 * MAX_PATH + 16] = {};
    DWORD length = static_cast<DWORD>(std::size(url));
    if (FAILED(UrlCreateFromPathW(path.c_str(), url, &length, 0))) return {};
    return url;
}

bool Launch(const wchar_t* file, const wchar_t* parameters) {
    SHELLEXECUTEINFOW info{sizeof(info)};
    info.fMask = SEE_MASK_FLAG_NO_UI | SEE_MASK_NOASYNC;
    info.lpVerb = L"open";
    info.lpFile = file;
    info.lpParameters = parameters;
    info.nShow = SW_SHOWNORMAL;
    return ShellExecuteExW(&info) != FALSE;
}

}  // namespace

bool OpenHelp(const std::wstring& asked) {
    const std::wstring anchor = SafeHelpAnchor(asked);
    const std::wstring page = HelpPagePath();
    if (GetFileAttributesW(page.c_str()) == INVALID_FILE_ATTRIBUTES) return false;
    // Opening the page by its file name drops the anchor, so hand the browser a URL.
    wchar_t browser[MAX_PATH] = {};
    DWORD size = MAX_PATH;
    const std::wstring url = FileUrl(page) + anchor;
    if (!anchor.empty() && SUCCEEDED(AssocQueryStringW(0, ASSOCSTR_EXECUTABLE, L".html", L"open", browser, &size))) {
        std::wstring quoted = L"\"" + url + L"\"";
        if (Launch(browser, quoted.c_str())) return true;
    }
    return Launch(page.c_str(), nullptr);
}

}  // namespace tessel
