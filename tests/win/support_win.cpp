#include "support_win.h"

#include <shellapi.h>

#include <vector>

#include "tools/frame_search_win.h"

namespace tessel::testing {

TempFolder::TempFolder() {
    wchar_t base[MAX_PATH] = {};
    GetTempPathW(MAX_PATH, base);
    static int counter = 0;
    for (;;) {
        path_ = std::wstring(base) + L"tessel-test-" + std::to_wstring(GetCurrentProcessId()) + L"-" +
                std::to_wstring(++counter);
        if (CreateDirectoryW(path_.c_str(), nullptr)) break;
    }
}

TempFolder::~TempFolder() {
    std::wstring from = path_ + L'\0';  // double-terminated list
    SHFILEOPSTRUCTW op{};
    op.wFunc = FO_DELETE;
    op.pFrom = from.c_str();
    op.fFlags = FOF_NO_UI;
    SHFileOperationW(&op);
}

void WriteBytes(const std::wstring& path, const std::string& bytes) {
    HANDLE file = CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE) return;
    DWORD written = 0;
    WriteFile(file, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr);
    CloseHandle(file);
}

void WriteUnicodeText(const std::wstring& path, const std::wstring& text) {
    std::string bytes = "\xFF\xFE";
    for (wchar_t ch : text) bytes += {static_cast<char>(ch & 0xFF), static_cast<char>(ch >> 8)};
    WriteBytes(path, bytes);
}

std::wstring ReadUnicodeText(const std::wstring& path) {
    const std::string bytes = ReadBytes(path);
    std::wstring text;
    for (size_t i = 2; i + 1 < bytes.size(); i += 2)
        text += static_cast<wchar_t>(static_cast<unsigned char>(bytes[i]) | (static_cast<unsigned char>(bytes[i + 1]) << 8));
    return text;
}

std::string ReadBytes(const std::wstring& path) {
    HANDLE file = CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_EXISTING,
                              FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE) return {};
    std::string bytes(GetFileSize(file, nullptr), '\0');
    DWORD read = 0;
    ReadFile(file, bytes.data(), static_cast<DWORD>(bytes.size()), &read, nullptr);
    CloseHandle(file);
    bytes.resize(read);
    return bytes;
}

bool FileExists(const std::wstring& path) { return GetFileAttributesW(path.c_str()) != INVALID_FILE_ATTRIBUTES; }

bool AnyFileMatches(const std::wstring& pattern) {
    WIN32_FIND_DATAW data;
    HANDLE find = FindFirstFileW(pattern.c_str(), &data);
    if (find == INVALID_HANDLE_VALUE) return false;
    FindClose(find);
    return true;
}

std::wstring TestBinFolder() {
    wchar_t exe[MAX_PATH] = {};
    GetModuleFileNameW(nullptr, exe, MAX_PATH);
    std::wstring path = exe;
    return path.substr(0, path.find_last_of(L'\\'));
}

TesselProcess::TesselProcess(const std::wstring& exe, const std::wstring& arguments, const std::wstring& folder) {
    std::wstring line = L"\"" + exe + L"\"" + (arguments.empty() ? L"" : L" " + arguments);
    STARTUPINFOW startup{sizeof(startup)};
    if (!CreateProcessW(exe.c_str(), line.data(), nullptr, nullptr, FALSE, 0, nullptr,
                        folder.empty() ? nullptr : folder.c_str(), &startup, &info_))
        info_ = {};
}

TesselProcess::~TesselProcess() {
    if (!info_.hProcess) return;
    if (WaitForSingleObject(info_.hProcess, 0) == WAIT_TIMEOUT) CloseAndWait(10000);
    CloseHandle(info_.hThread);
    CloseHandle(info_.hProcess);
}

bool TesselProcess::WaitForWindow(DWORD timeoutMs) {
    if (!info_.hProcess) return false;
    DWORD start = GetTickCount();
    while (GetTickCount() - start < timeoutMs) {
        if (HWND found = tools::FindVisibleFrame(info_.dwProcessId)) {
            frame_ = found;
            // The T-Views not in use are made just after the window shows: a message it answers
            // waits for that.
            DWORD_PTR answer = 0;
            SendMessageTimeoutW(found, WM_NULL, 0, 0, SMTO_NORMAL, timeoutMs, &answer);
            return true;
        }
        if (WaitForSingleObject(info_.hProcess, 20) == WAIT_OBJECT_0) return false;
    }
    return false;
}

std::wstring LowerCase(std::wstring text) {
    CharLowerW(text.data());
    return text;
}

std::wstring TesselProcess::PanelText(int view) const {
    wchar_t text[1024] = {};
    GetWindowTextW(GetDlgItem(frame_, 1000 + view), text, 1024);
    return text;
}

int TesselProcess::WaitForExit(DWORD timeoutMs) {
    if (!info_.hProcess || WaitForSingleObject(info_.hProcess, timeoutMs) != WAIT_OBJECT_0) return -1;
    DWORD code = 0;
    GetExitCodeProcess(info_.hProcess, &code);
    return static_cast<int>(code);
}

int TesselProcess::CloseAndWait(DWORD timeoutMs) {
    if (frame_) PostMessageW(frame_, WM_CLOSE, 0, 0);
    return WaitForExit(timeoutMs);
}

}  // namespace tessel::testing

namespace tessel::testing {

std::wstring GetWindowTextString(HWND window) {
    std::wstring text(static_cast<size_t>(GetWindowTextLengthW(window)) + 1, L'\0');
    text.resize(GetWindowTextW(window, text.data(), static_cast<int>(text.size())));
    return text;
}

}  // namespace tessel::testing
