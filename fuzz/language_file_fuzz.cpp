// A language file beside the program, in any encoding and any state: decoded and parsed as the
// program's packs are, then written back by the translation editor and read again unchanged.
#include <string_view>

#include "core/string_table.h"
#include "core/translation.h"
#include "core/utf8.h"
#include "fuzz_text.h"

using namespace tessel;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::wstring text =
        DecodeTextFile(std::string_view(reinterpret_cast<const char*>(data), size), DecodeUtf8OrLatin1);
    StringTable table, english;
    table.Parse(text);
    TranslationDraft draft(english, table);
    StringTable again;
    again.Parse(draft.PackText(L"; fuzz"));
    for (const TranslationRow& row : draft.Rows()) {
        const std::wstring* read = again.Find(row.id);
        if (row.text.empty()) continue;
        // Texts the escapes cannot carry (a backslash before t, r or n) are the only changes.
        if (row.text.find(L'\\') == std::wstring::npos) fuzz::Check(read && *read == row.text);
    }
    return 0;
}
