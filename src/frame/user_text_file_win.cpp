#include "frame/user_text_file_win.h"

#include <windows.h>

#include <algorithm>

#include "frame/folder_set.h"
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
    return win::ReadFileBytes(path, limit, bytes) ? FolderSetText(bytes, CodePageText) : std::wstring();
}

}  // namespace tessel
