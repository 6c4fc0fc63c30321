// A search favorite file from the favorites folder: reading never fails, and once written what
// was read comes back the same.
#include "nav/search_favorite.h"
#include "fuzz_text.h"

using namespace tessel;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    SearchFavorite search;
    if (!ReadSearchFavorite(fuzz::WideOf(data, size), search)) return 0;
    SearchFavorite again, third;
    if (!ReadSearchFavorite(WriteSearchFavorite(search), again)) return 0;  // a folder of blanks only
    fuzz::Check(ReadSearchFavorite(WriteSearchFavorite(again), third) && third == again);
    return 0;
}
