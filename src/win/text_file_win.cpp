#include "win/text_file_win.h"

#include <windows.h>

#include "win/handles_win.h"

namespace tessel::win {

namespace {

// A name beside the target that no file has: a fixed one would destroy a user's file of that name.
UniqueHandle CreateTemporaryBeside(const std::wstring& path, std::wstring& temporary) {
    static LONG counter = 0;
    for (int attempt = 0; attempt < 100; ++attempt) {
        temporary = path + L"." + std::to_wstring(GetCurrentProcessId()) + L"-" +
                    std::to_wstring(InterlockedIncrement(&counter)) + L".tmp";
        UniqueHandle file(CreateFileW(temporary.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW,
                                      FILE_ATTRIBUTE_NORMAL, nullptr));
        if (file || GetLastError() != ERROR_FILE_EXISTS) return file;
    }
    return UniqueHandle();
}

}  // namespace

bool WriteFileReplacing(const std::wstring& path, const std::string& bytes) {
    std::wstring temporary;
    UniqueHandle file = CreateTemporaryBeside(path, temporary);
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

bool ReadFileBytes(const std::wstring& path, size_t limit, std::string& bytes) {
    UniqueHandle file(CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_EXISTING,
                                  FILE_ATTRIBUTE_NORMAL, nullptr));
    LARGE_INTEGER size{};
    if (!file || !GetFileSizeEx(file.get(), &size) || static_cast<uint64_t>(size.QuadPart) > limit) return false;
    bytes.resize(static_cast<size_t>(size.QuadPart));
    DWORD read = 0;
    return bytes.empty() || (ReadFile(file.get(), bytes.data(), static_cast<DWORD>(bytes.size()), &read, nullptr) &&
                             read == bytes.size());
}

}  // namespace tessel::win
