#pragma once
// The placeholders of user-defined commands, filled in from the view that runs the command just
// before it starts, and the path variables that name system folders. Both are plain text
// substitutions; a text that begins with U+0001 is left as it is.
#include <string>
#include <string_view>
#include <vector>

namespace tessel {

inline constexpr wchar_t kNoExpansionMark = L'\x0001';

// What the placeholders read from the view that runs the command.
class IPlaceholderView {
public:
    virtual std::wstring MarkedItemPath() = 0;  // the item at the selection mark; "" for none
    // Every selected item, or every item, in list order, as QuotedPathList writes them.
    virtual std::wstring QuotedItemPaths(bool selectedOnly) = 0;
    virtual std::wstring CurrentFolder() = 0;

protected:
    ~IPlaceholderView() = default;
};

enum class PathVariable { kSystem, kWindows, kProgramFile, kDesktop, kAppData, kPersonal };

// Asked only for the variables a text holds.
class IPathVariables {
public:
    virtual std::wstring Folder(PathVariable which) = 0;

protected:
    ~IPathVariables() = default;
};

// "%sel_file%", "%sel_files%", "%all_files%", "%curdir%" and "%curdir1%".."%curdir4%", in that
// order. The numbered ones insert the folder of the view that runs the command, as "%curdir%".
void ExpandViewPlaceholders(IPlaceholderView& view, std::wstring& text);

// "%sysdir%", "%windir%", "%drive%" (the program's drive, "C:" without a backslash, so that
// "%drive%\tools" is one path), "%desktop%", "%appdata%", "%personal%".
void ExpandPathVariables(IPathVariables& folders, std::wstring& text);

// Paths each in double quotes, separated by one blank; "" for none.
std::wstring QuotedPathList(const std::vector<std::wstring>& paths);
void AppendQuotedPath(std::wstring& list, std::wstring_view path);  // one more path of such a list

}  // namespace tessel
