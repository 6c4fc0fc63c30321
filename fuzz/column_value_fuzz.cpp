// Column memory values come from the settings file and from folder-set files: a value that
// decodes re-encodes to itself, and a column key never fails on any parsing name.
#include <vector>

#include "fuzz_text.h"
#include "view/column_memory.h"

using namespace tessel;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::wstring text = fuzz::WideOf(data, size);
    std::vector<uint8_t> bytes;
    if (DecodeColumnValue(text, bytes)) {
        fuzz::Check(bytes.size() <= kColumnStreamLimit);
        std::vector<uint8_t> again;
        fuzz::Check(DecodeColumnValue(EncodeColumnValue(bytes), again) && again == bytes);
    }
    // Raw bytes as a stream: encoded, they always decode to their first 4,096 bytes.
    std::vector<uint8_t> stream(data, data + size);
    std::vector<uint8_t> decoded;
    fuzz::Check(DecodeColumnValue(EncodeColumnValue(stream), decoded));
    stream.resize(std::min(stream.size(), kColumnStreamLimit));
    fuzz::Check(decoded == stream);
    ColumnKey(text, static_cast<int>(size % 7) - 1);
    return 0;
}
