#pragma once
// The records of a folder's change notification buffer made into changes a view can use: the
// full path of each name, and for a rename the old name from the record just before it.
#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <utility>

namespace tessel {

enum DirChangeAction : uint32_t {
    kActionAdded = 1,
    kActionRemoved = 2,
    kActionModified = 3,
    kActionRenamedOld = 4,
    kActionRenamedNew = 5,
};

struct DirChange {
    uint32_t action = 0;   // as the system reports it
    std::wstring name;     // relative to the watched folder
    std::wstring fullPath;
    std::wstring oldName;  // a rename's first name, when its old-name record came just before
};

// The watched folder and a name joined by one backslash. A doubled backslash (a drive root's
// own, or one in the name) becomes one, except the two that begin a network path.
std::wstring JoinChangePath(std::wstring_view folder, std::wstring_view name);

// Reads the system's record layout: next-entry offset, action, name length in bytes, then the
// name in UTF-16. Keeps the previous record for the rename pairing
// across buffers, as the watcher reads them one after another.
class DirChangeReader {
public:
    explicit DirChangeReader(std::wstring folder) : folder_(std::move(folder)) {}

    // Calls `sink` for each record. A record that does not fit the buffer ends the reading;
    // the answer is the number of records handed on.
    size_t Read(const uint8_t* buffer, size_t size, const std::function<void(const DirChange&)>& sink);

private:
    std::wstring folder_;
    std::wstring previousName_;
    uint32_t previousAction_ = 0;
};

}  // namespace tessel
