#include "core/user_text_file_win.h"

#include <windows.h>

#include <algorithm>

#include "core/fill_in.h"
#include "core/language_packs_win.h"
#include "core/utf8.h"
#include "res/resource.h"
#include "win/text_file_win.h"

namespace tessel {
namespace {

std::wstring CodePageText(std::string_view bytes) {
    const int size = static_cast<int>(bytes.size());
    std::wstring text(bytes.size(), L'\0');  // never more characters than bytes
    const int length = MultiByteToWideChar(CP_ACP, 0, bytes.data(), size, text.data(), size);
    text.resize(length > 0 ? length : 0);
    return text;
}

}  // namespace

std::wstring ReadUserTextFile(const std::wstring& path, size_t limit) {
    std::string bytes;
    return win::ReadFileBytes(path, limit, bytes) ? DecodeTextFile(bytes, CodePageText) : std::wstring();
}

UserFileProblem ReadUserTextFile(const std::wstring& path, size_t limit, std::wstring& text) {
    text.clear();
    WIN32_FILE_ATTRIBUTE_DATA facts{};
    if (!GetFileAttributesExW(path.c_str(), GetFileExInfoStandard, &facts) ||
        (facts.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY))
        return UserFileProblem::kUnreadable;
    if (facts.nFileSizeHigh != 0 || facts.nFileSizeLow > limit) return UserFileProblem::kTooLarge;
    std::string bytes;
    if (!win::ReadFileBytes(path, limit, bytes)) return UserFileProblem::kUnreadable;
    text = DecodeTextFile(bytes, CodePageText);
    return text.find_first_not_of(L" \t\r\n") == std::wstring::npos ? UserFileProblem::kEmpty : UserFileProblem::kNone;
}

void ReportImportProblem(HWND owner, UserFileProblem problem, const std::wstring& path, size_t limit) {
    const int id = problem == UserFileProblem::kTooLarge ? IDS_IMPORT_TOO_LARGE
                   : problem == UserFileProblem::kEmpty  ? IDS_IMPORT_EMPTY
                                                         : IDS_IMPORT_UNREADABLE;
    const std::wstring text = FillIn(GetText(id), {std::to_wstring(limit / 1024)}) + L"\n" + path;
    MessageBoxW(owner, text.c_str(), GetText(60000).c_str(), MB_OK | MB_ICONWARNING);
}

}  // namespace tessel
