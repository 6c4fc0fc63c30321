// A folder's change notification buffer as the system hands it to the watcher: every record
// handed on lies inside the buffer, and its path begins with the watched folder.
#include "view/dir_change_records.h"
#include "fuzz_text.h"

using namespace tessel;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    DirChangeReader reader(L"C:\\watched");
    size_t seen = 0;
    const size_t count = reader.Read(data, size, [&](const DirChange& change) {
        ++seen;
        fuzz::Check(change.name.size() * 2 + 12 <= size);
        fuzz::Check(change.fullPath.starts_with(L"C:\\watched"));
        fuzz::Check(change.oldName.empty() || change.action == kActionRenamedNew);
    });
    fuzz::Check(count == seen && count <= size / 12);
    return 0;
}
