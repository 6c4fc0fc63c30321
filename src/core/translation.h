#pragma once
// The translation editor's model: every string id with its English text and its text in the
// language being edited, searching, changing, and the language file written back in the pack
// format (which the program loads in place of its own pack).
#include <string>
#include <string_view>
#include <vector>

#include "core/string_table.h"

namespace tessel {

struct TranslationRow {
    int id = 0;
    std::wstring english;
    std::wstring text;     // empty: not translated
    std::wstring builtIn;  // the program's own text in this language; empty: none
};

class TranslationDraft {
public:
    // Every id of either table once, in ascending order; the first entry of an id counts.
    // `builtIn` is the program's own pack of the language: texts equal to it are not written to
    // the language file, so that later fixes of the pack are not shadowed by copies.
    TranslationDraft(const StringTable& english, const StringTable& language, const StringTable& builtIn = {});

    const std::vector<TranslationRow>& Rows() const { return rows_; }
    // The rows whose id, English text or translation holds `query` (case not minded); all for "".
    std::vector<size_t> Find(std::wstring_view query) const;
    void Set(size_t row, std::wstring text);
    bool Changed() const { return changed_; }
    size_t Translated() const;
    // The pack text of every translated row whose text the program's own pack does not already
    // hold, after the header line: lines "id=text" with TAB, CR and LF escaped (the file's
    // byte-order mark is the writer's).
    std::wstring PackText(std::wstring_view header) const;
    void MarkSaved() { changed_ = false; }

private:
    std::vector<TranslationRow> rows_;
    bool changed_ = false;
};

// A text shown on one line in the editor: TAB, CR and LF as "\t", "\r" and "\n", as in packs.
std::wstring EscapedText(std::wstring_view text);
std::wstring UnescapedText(std::wstring_view text);

}  // namespace tessel
