// Language packs are text files that translators edit: any text parses, and every id it
// reports can be found again.
#include "core/string_table.h"
#include "fuzz_text.h"

using namespace tessel;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    StringTable table;
    table.Parse(fuzz::WideOf(data, size));
    for (int id : {1, 60000, 134, 2000000 - 1}) table.Find(id);
    return 0;
}
