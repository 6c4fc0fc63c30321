// What a user-defined command is given: the folder's change records the watcher reads, and the
// placeholders and path variables filled in just before a command starts.
#include <gtest/gtest.h>

#include <map>
#include <vector>

#include "view/command_placeholders.h"
#include "view/dir_change_records.h"

namespace tessel {
namespace {

// One record in the system's layout; `next` 0 ends the buffer.
void AppendRecord(std::vector<uint8_t>& buffer, uint32_t action, std::u16string_view name, bool last) {
    const size_t start = buffer.size();
    const uint32_t bytes = static_cast<uint32_t>(name.size() * 2);
    const uint32_t length = (12 + bytes + 3) & ~3u;
    const uint32_t fields[3] = {last ? 0u : length, action, bytes};
    for (uint32_t field : fields)
        for (int shift = 0; shift < 32; shift += 8) buffer.push_back(static_cast<uint8_t>(field >> shift));
    for (char16_t c : name) {
        buffer.push_back(static_cast<uint8_t>(c));
        buffer.push_back(static_cast<uint8_t>(c >> 8));
    }
    buffer.resize(start + length);
}

std::vector<DirChange> ReadAll(DirChangeReader& reader, const std::vector<uint8_t>& buffer) {
    std::vector<DirChange> changes;
    reader.Read(buffer.data(), buffer.size(), [&](const DirChange& change) { changes.push_back(change); });
    return changes;
}

TEST(DirChanges, RecordsGivePathsAndRenamesTheirOldName) {
    std::vector<uint8_t> buffer;
    AppendRecord(buffer, kActionAdded, u"new.txt", false);
    AppendRecord(buffer, kActionRenamedOld, u"a.txt", false);
    AppendRecord(buffer, kActionRenamedNew, u"b\u00e4.txt", true);
    DirChangeReader reader(L"C:\\");
    const auto changes = ReadAll(reader, buffer);
    ASSERT_EQ(changes.size(), 3u);
    EXPECT_EQ(changes[0].fullPath, L"C:\\new.txt") << "one backslash after a drive";
    EXPECT_TRUE(changes[0].oldName.empty());
    EXPECT_EQ(changes[2].action, kActionRenamedNew);
    EXPECT_EQ(changes[2].name, L"b\u00e4.txt");
    EXPECT_EQ(changes[2].oldName, L"a.txt");

    // The pairing holds across two reads of the watcher.
    std::vector<uint8_t> first, second;
    AppendRecord(first, kActionRenamedOld, u"x", true);
    AppendRecord(second, kActionRenamedNew, u"y", true);
    ReadAll(reader, first);
    EXPECT_EQ(ReadAll(reader, second)[0].oldName, L"x");
    // A new name after anything but an old name has none.
    std::vector<uint8_t> lone;
    AppendRecord(lone, kActionRenamedNew, u"z", true);
    EXPECT_TRUE(ReadAll(reader, lone)[0].oldName.empty());
}

TEST(DirChanges, DamagedBuffersEndTheReading) {
    std::vector<uint8_t> buffer;
    AppendRecord(buffer, kActionAdded, u"ok", false);
    AppendRecord(buffer, kActionAdded, u"cut", true);
    DirChangeReader reader(L"D:\\dir");
    std::vector<uint8_t> cut(buffer.begin(), buffer.end() - 4);  // the second name runs past the end
    EXPECT_EQ(ReadAll(reader, cut).size(), 1u);
    std::vector<uint8_t> loop = buffer;
    loop[0] = 0;  // an offset of 0 ends the buffer; one past the end must too
    EXPECT_EQ(ReadAll(reader, loop).size(), 1u);
    loop[0] = 0xF0;
    EXPECT_EQ(ReadAll(reader, loop).size(), 1u);
    EXPECT_EQ(reader.Read(nullptr, 100, [](const DirChange&) {}), 0u);
    EXPECT_EQ(reader.Read(buffer.data(), 11, [](const DirChange&) {}), 0u);
}

TEST(DirChanges, JoinedPathsHaveSingleBackslashesButKeepNetworkPaths) {
    EXPECT_EQ(JoinChangePath(L"C:\\", L"a"), L"C:\\a");
    EXPECT_EQ(JoinChangePath(L"C:\\dir", L"sub\\a"), L"C:\\dir\\sub\\a");
    EXPECT_EQ(JoinChangePath(L"\\\\server\\share\\", L"a"), L"\\\\server\\share\\a");
}

struct FakeView : IPlaceholderView {
    std::wstring marked;
    std::vector<std::wstring> all, selected;
    std::wstring folder = L"C:\\Work Dir";
    int asked = 0;
    std::wstring MarkedItemPath() override { return ++asked, marked; }
    std::wstring QuotedItemPaths(bool selectedOnly) override {
        return ++asked, QuotedPathList(selectedOnly ? selected : all);
    }
    std::wstring CurrentFolder() override { return ++asked, folder; }
};

TEST(Placeholders, ViewTokensFillInPathsQuotedAndAllOccurrences) {
    FakeView view;
    view.marked = L"C:\\Work Dir\\a b.txt";
    view.selected = {view.marked};
    view.all = {L"C:\\x", view.marked, L"C:\\q\"uote"};
    std::wstring text = L"%sel_file%|%sel_files%|%all_files%|%curdir%|%curdir3%|%curdir%";
    ExpandViewPlaceholders(view, text);
    EXPECT_EQ(text, L"\"C:\\Work Dir\\a b.txt\"|\"C:\\Work Dir\\a b.txt\"|\"C:\\x\" \"C:\\Work Dir\\a b.txt\" "
                    L"\"C:\\q\"uote\"|C:\\Work Dir|C:\\Work Dir|C:\\Work Dir");

    view.asked = 0;
    std::wstring plain = L"notepad.exe readme.txt";
    ExpandViewPlaceholders(view, plain);
    EXPECT_EQ(plain, L"notepad.exe readme.txt");
    std::wstring guarded = L"\x0001%curdir%";
    ExpandViewPlaceholders(view, guarded);
    EXPECT_EQ(guarded, L"\x0001%curdir%");
    EXPECT_EQ(view.asked, 0) << "the view is only asked for tokens that are there";

    view.selected.clear();
    view.marked.clear();
    std::wstring none = L"x %sel_files%%sel_file% y";
    ExpandViewPlaceholders(view, none);
    EXPECT_EQ(none, L"x  y");
}

TEST(Placeholders, PathVariablesInOrderAndTheProgramsDrive) {
    struct Folders : IPathVariables {
        std::map<PathVariable, std::wstring> values{{PathVariable::kSystem, L"C:\\windows\\system32"},
                                                    {PathVariable::kWindows, L"C:\\windows"},
                                                    {PathVariable::kProgramFile, L"D:\\tools\\tessel.exe"},
                                                    {PathVariable::kAppData, L"C:\\users\\me\\AppData\\Roaming"}};
        std::wstring Folder(PathVariable which) override { return values[which]; }
    } folders;
    std::wstring text = L"%drive%\\bin %sysdir%;%windir%;%appdata%\\x;%drive%;%unknown%";
    ExpandPathVariables(folders, text);
    EXPECT_EQ(text, L"D:\\bin C:\\windows\\system32;C:\\windows;C:\\users\\me\\AppData\\Roaming\\x;D:;%unknown%");
    // A replacement holding a token is not expanded again.
    folders.values[PathVariable::kSystem] = L"%sysdir%";
    std::wstring twice = L"%sysdir%%sysdir%";
    ExpandPathVariables(folders, twice);
    EXPECT_EQ(twice, L"%sysdir%%sysdir%");
}

}  // namespace
}  // namespace tessel
