#include "view/command_placeholders.h"

#include <string_view>

namespace tessel {
namespace {

bool Guarded(const std::wstring& text) { return !text.empty() && text[0] == kNoExpansionMark; }

// Replaces every occurrence; the replacement is made only when the token is there.
template <typename Make>
void ReplaceAll(std::wstring& text, std::wstring_view token, Make make) {
    size_t at = text.find(token);
    if (at == std::wstring::npos) return;
    const std::wstring value = make();
    for (; at != std::wstring::npos; at = text.find(token, at + value.size())) text.replace(at, token.size(), value);
}

// The part of the program's path before its first backslash.
std::wstring DriveOf(const std::wstring& path) { return path.substr(0, path.find(L'\\')); }

}  // namespace

void AppendQuotedPath(std::wstring& list, std::wstring_view path) {
    if (!list.empty()) list += L' ';
    list.append(1, L'"').append(path).append(1, L'"');
}

std::wstring QuotedPathList(const std::vector<std::wstring>& paths) {
    std::wstring list;
    for (const std::wstring& path : paths) AppendQuotedPath(list, path);
    return list;
}

void ExpandViewPlaceholders(IPlaceholderView& view, std::wstring& text) {
    if (Guarded(text) || text.find(L'%') == std::wstring::npos) return;
    ReplaceAll(text, L"%sel_file%", [&] {
        const std::wstring path = view.MarkedItemPath();
        return path.empty() ? path : L"\"" + path + L"\"";
    });
    ReplaceAll(text, L"%sel_files%", [&] { return view.QuotedItemPaths(true); });
    ReplaceAll(text, L"%all_files%", [&] { return view.QuotedItemPaths(false); });
    for (const wchar_t* token : {L"%curdir%", L"%curdir1%", L"%curdir2%", L"%curdir3%", L"%curdir4%"})
        ReplaceAll(text, token, [&] { return view.CurrentFolder(); });
}

void ExpandPathVariables(IPathVariables& folders, std::wstring& text) {
    if (Guarded(text) || text.find(L'%') == std::wstring::npos) return;
    ReplaceAll(text, L"%sysdir%", [&] { return folders.Folder(PathVariable::kSystem); });
    ReplaceAll(text, L"%windir%", [&] { return folders.Folder(PathVariable::kWindows); });
    ReplaceAll(text, L"%drive%", [&] { return DriveOf(folders.Folder(PathVariable::kProgramFile)); });
    ReplaceAll(text, L"%desktop%", [&] { return folders.Folder(PathVariable::kDesktop); });
    ReplaceAll(text, L"%appdata%", [&] { return folders.Folder(PathVariable::kAppData); });
    ReplaceAll(text, L"%personal%", [&] { return folders.Folder(PathVariable::kPersonal); });
}

}  // namespace tessel
