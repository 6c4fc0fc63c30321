#pragma once
// Helpers of the Win32 tests: temporary folders, small files, and the real tessel.exe.
#include <windows.h>

#include <atomic>
#include <mutex>
#include <string>
#include <thread>

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
bool AnyFileMatches(const std::wstring& pattern);  // "*" and "?" as the file system matches them
std::wstring TestBinFolder();  // where tessel.exe and the tests are built
std::wstring LowerCase(std::wstring text);  // paths compare without case
std::wstring GetWindowTextString(HWND window);

// Answers Tessel's message boxes ("Tessel" in the title) while it lives, and keeps the text of
// the last one and how many it answered.
class MessageAnswer {
public:
    explicit MessageAnswer(int answer = IDOK)
        : thread_([this, answer](std::stop_token stop) {
              while (!stop.stop_requested()) {
                  if (HWND box = FindWindowW(L"#32770", L"Tessel")) {
                      wchar_t text[1024] = {};
                      // A box found while it is being made has no text yet: look again.
                      if (!GetDlgItemTextW(box, 0xFFFF, text, 1024)) {
                          Sleep(20);
                          continue;
                      }
                      {
                          std::lock_guard lock(mutex_);
                          text_ = text;
                      }
                      ++count_;
                      PostMessageW(box, WM_COMMAND, answer, 0);
                      while (IsWindow(box) && !stop.stop_requested()) Sleep(10);
                  }
                  Sleep(20);
              }
          }) {}
    std::wstring Text() {
        std::lock_guard lock(mutex_);
        return text_;
    }
    int Count() const { return count_; }

private:
    std::mutex mutex_;
    std::wstring text_;
    std::atomic<int> count_{0};
    std::jthread thread_;  // last: stopped and joined first
};

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
