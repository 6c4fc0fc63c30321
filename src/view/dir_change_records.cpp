#include "view/dir_change_records.h"

#include "core/path_text.h"


namespace tessel {
namespace {

constexpr size_t kHeaderBytes = 12;  // next-entry offset, action, name length

uint32_t ReadUint32(const uint8_t* at) {
    return uint32_t(at[0]) | uint32_t(at[1]) << 8 | uint32_t(at[2]) << 16 | uint32_t(at[3]) << 24;
}

// UTF-16 code units as they come; on Windows that is the wide text itself.
std::wstring ReadName(const uint8_t* at, size_t bytes) {
    std::wstring name(bytes / 2, L'\0');
    for (size_t i = 0; i < name.size(); ++i) name[i] = static_cast<wchar_t>(at[2 * i] | at[2 * i + 1] << 8);
    return name;
}

}  // namespace

std::wstring JoinChangePath(std::wstring_view folder, std::wstring_view name) {
    std::wstring joined;
    joined.reserve(folder.size() + name.size() + 1);
    joined.append(folder).append(1, L'\\').append(name);
    CollapseBackslashes(joined);
    return joined;
}

size_t DirChangeReader::Read(const uint8_t* buffer, size_t size,
                             const std::function<void(const DirChange&)>& sink) {
    size_t count = 0;
    for (size_t at = 0; buffer && at + kHeaderBytes <= size;) {
        const uint32_t next = ReadUint32(buffer + at);
        const uint32_t action = ReadUint32(buffer + at + 4);
        const uint32_t nameBytes = ReadUint32(buffer + at + 8);
        if (nameBytes > size - at - kHeaderBytes) break;  // damaged: the name runs past the end
        DirChange change;
        change.action = action;
        change.name = ReadName(buffer + at + kHeaderBytes, nameBytes);
        change.fullPath = JoinChangePath(folder_, change.name);
        if (action == kActionRenamedNew && previousAction_ == kActionRenamedOld) change.oldName = previousName_;
        sink(change);
        ++count;
        previousName_ = std::move(change.name);
        previousAction_ = action;
        if (next < kHeaderBytes || next > size - at) break;  // the last record, or a damaged offset
        at += next;
    }
    return count;
}

}  // namespace tessel
