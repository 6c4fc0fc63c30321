// Files dropped on a folder: the dropped paths (one a line) and the target (the last line). A
// dropped folder never counts as another volume than itself, nor as a fit place for itself,
// and the effect is always one the source allows.
#include <algorithm>
#include <vector>

#include "fuzz_text.h"
#include "view/file_drop.h"

using namespace tessel;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    if (size < 1) return 0;
    const uint32_t keys = data[0] & (kKeyShift | kKeyControl);
    const uint32_t allowed = (data[0] >> 4) & 7;
    const std::wstring text = fuzz::WideOf(data + 1, size - 1);
    std::vector<std::wstring> lines;
    for (size_t start = 0; start <= text.size();) {
        const size_t end = std::min(text.find(L'\n', start), text.size());
        lines.push_back(text.substr(start, end - start));
        start = end + 1;
    }
    const std::wstring target = lines.back();
    lines.pop_back();
    for (const std::wstring& path : lines) {
        fuzz::Check(SameVolume(path, target) == SameVolume(target, path));
        if (!path.empty()) fuzz::Check(DropsIntoItself({path}, path));
    }
    DropsIntoItself(lines, target);
    for (bool same : {false, true}) {
        const uint32_t effect = FileDropEffect(keys, same, allowed);
        fuzz::Check((effect & ~allowed) == 0 && (effect == 0 || effect == kDropCopy || effect == kDropMove));
    }
    return 0;
}
