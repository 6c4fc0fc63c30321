#pragma once
// Helpers of the Win32 tests: temporary folders, small files, and the real tessel.exe.
#include <windows.h>

#include <string>

namespace tessel::testing {

// A fresh folder under the temporary folder, removed with its contents at the end.
class TempFolder {
public:
    TempFolder();
    ~TempFolder();
    const std::wstring& path() const { return path_; }
    std::wstring operator/(const std::wstring& name) const { return path_ + L"\\" + name; }

private:
    std::wstring path_;
};

void WriteBytes(const std::wstring& path, const std::string& bytes);
// Text files as Tessel writes them: UTF-16LE after a byte-order mark.
void WriteUnicodeText(const std::wstring& path, const std::wstring& text);
std::wstring ReadUnicodeText(const std::wstring& path);
std::string ReadBytes(const std::wstring& path);
bool FileExists(const std::wstring& path);
std::wstring TestBinFolder();  // where tessel.exe and the tests are built
std::wstring LowerCase(std::wstring text);  // paths compare without case
std::wstring GetWindowTextString(HWND window);

// tessel.exe started with arguments; closing asks its main window to close.
class TesselProcess {
public:
    TesselProcess(const std::wstring& exe, const std::wstring& arguments, const std::wstring& currentFolder = L"");
    ~TesselProcess();
    bool WaitForWindow(DWORD timeoutMs = 20000);  // visible main window of this process
    HWND Frame() const { return frame_; }
    std::wstring PanelText(int view) const;  // which location T-View 1..4 was given
    int CloseAndWait(DWORD timeoutMs = 20000);  // exit code, or -1 on timeout
    int WaitForExit(DWORD timeoutMs = 20000);
    bool Started() const { return info_.hProcess != nullptr; }

private:
    PROCESS_INFORMATION info_{};
    HWND frame_ = nullptr;
};

}  // namespace tessel::testing
