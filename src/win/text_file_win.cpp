#include "win/text_file_win.h"

#include <windows.h>

#include "win/handles_win.h"

namespace tessel::win {

bool WriteFileReplacing(const std::wstring& path, const std::string& bytes) {
    const std::wstring temporary = path + L".new";
    UniqueHandle file(CreateFileW(temporary.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL,
                                  nullptr));
    if (!file) return false;
    DWORD written = 0;
    const bool ok = WriteFile(file.get(), bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr) &&
                    written == bytes.size() && FlushFileBuffers(file.get());
    file.reset();
    if (ok && MoveFileExW(temporary.c_str(), path.c_str(), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH))
        return true;
    DeleteFileW(temporary.c_str());
    return false;
}

bool WriteUnicodeFile(const std::wstring& path, const std::wstring& text) {
    std::string bytes = "\xFF\xFE";
    bytes.reserve(2 + 2 * text.size());
    for (wchar_t c : text) {
        bytes += static_cast<char>(c & 0xFF);
        bytes += static_cast<char>((c >> 8) & 0xFF);
    }
    return WriteFileReplacing(path, bytes);
}

}  // namespace tessel::win
