// The "Programs", "Quick-Links" and "Association" sections as the settings file holds them, and a
// command line made from an entry: parsing never fails, entries survive writing and reading back,
// and the expansions never touch a guarded text.
#include "features/quick_links.h"
#include "view/command_placeholders.h"
#include "fuzz_text.h"

using namespace tessel;

namespace {

struct View : IPlaceholderView {
    std::wstring MarkedItemPath() override { return L"C:\\a b"; }
    std::wstring QuotedItemPaths(bool) override { return QuotedPathList({L"C:\\x", L"%curdir%"}); }
    std::wstring CurrentFolder() override { return L"C:\\"; }
};
struct Folders : IPathVariables {
    std::wstring Folder(PathVariable) override { return L"%sysdir%"; }
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::wstring text = fuzz::WideOf(data, size);
    const auto entries = ParseQuickLinks(text);
    fuzz::Check(entries.size() <= kQuickLinkMaxEntries);
    bool plain = true;  // names and targets without line breaks or "=" in the name come back the same
    for (const QuickLinkEntry& entry : entries) {
        if (QuickLinkStorable(entry)) fuzz::Check(ParseQuickLinks(FormatQuickLinks({entry})) == std::vector{entry});
        plain = plain && entry.name.find_first_of(L"=\r\n") == std::wstring::npos &&
                entry.target.find_first_of(L"\r\n") == std::wstring::npos && !entry.name.empty();
        AssociatedProgram(entries, entry.target);
        View view;
        Folders folders;
        std::wstring command = entry.target;
        ExpandViewPlaceholders(view, command);
        ExpandPathVariables(folders, command);
        if (!entry.target.empty() && entry.target[0] == kNoExpansionMark) fuzz::Check(command == entry.target);
    }
    if (plain) fuzz::Check(ParseQuickLinks(FormatQuickLinks(entries)) == entries);
    return 0;
}
