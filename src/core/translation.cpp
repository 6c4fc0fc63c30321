#include "core/translation.h"

#include <algorithm>
#include <cwctype>
#include <map>


namespace tessel {
namespace {

std::wstring Lower(std::wstring_view text) {
    std::wstring lower(text);
    for (wchar_t& c : lower) c = static_cast<wchar_t>(std::towlower(c));
    return lower;
}

void FirstOfEachId(const StringTable& table, std::map<int, std::wstring>& texts) {
    for (size_t i = 0; i < table.size(); ++i) texts.try_emplace(table.IdAt(i), table.TextAt(i));
}

}  // namespace

TranslationDraft::TranslationDraft(const StringTable& english, const StringTable& language, const StringTable& builtIn) {
    std::map<int, std::wstring> englishTexts, texts, own;
    FirstOfEachId(english, englishTexts);
    FirstOfEachId(language, texts);
    FirstOfEachId(builtIn, own);
    std::map<int, TranslationRow> rows;
    for (const auto& [id, text] : englishTexts) rows[id].english = text;
    for (const auto& [id, text] : texts) rows[id].text = text;
    for (const auto& [id, text] : own)
        if (auto row = rows.find(id); row != rows.end()) row->second.builtIn = text;
    for (auto& [id, row] : rows) {
        row.id = id;
        rows_.push_back(std::move(row));
    }
}

std::vector<size_t> TranslationDraft::Find(std::wstring_view query) const {
    const std::wstring wanted = Lower(query);
    std::vector<size_t> found;
    for (size_t i = 0; i < rows_.size(); ++i) {
        const TranslationRow& row = rows_[i];
        if (wanted.empty() || std::to_wstring(row.id).find(wanted) != std::wstring::npos ||
            Lower(row.english).find(wanted) != std::wstring::npos || Lower(row.text).find(wanted) != std::wstring::npos)
            found.push_back(i);
    }
    return found;
}

void TranslationDraft::Set(size_t row, std::wstring text) {
    if (text.find_first_not_of(L" \t") == std::wstring::npos) text.clear();  // blanks are no translation
    if (row >= rows_.size() || rows_[row].text == text) return;
    rows_[row].text = std::move(text);
    changed_ = true;
}

size_t TranslationDraft::Translated() const {
    return static_cast<size_t>(std::count_if(rows_.begin(), rows_.end(), [](const TranslationRow& r) { return !r.text.empty(); }));
}

std::wstring TranslationDraft::PackText(std::wstring_view header) const {
    std::wstring text(header);
    text += L"\n";
    for (const TranslationRow& row : rows_)
        if (!row.text.empty() && row.text != row.builtIn) text += std::to_wstring(row.id) + L"=" + EscapedText(row.text) + L"\n";
    return text;
}

std::wstring EscapedText(std::wstring_view text) {
    std::wstring out;
    for (const wchar_t c : text) {
        if (c == L'\t') out += L"\\t";
        else if (c == L'\r') out += L"\\r";
        else if (c == L'\n') out += L"\\n";
        else out += c;
    }
    // Blanks at either end would be trimmed when the pack is read; they are left out here too.
    const size_t first = out.find_first_not_of(L' ');
    if (first == std::wstring::npos) return L"";
    return out.substr(first, out.find_last_not_of(L' ') - first + 1);
}

std::wstring UnescapedText(std::wstring_view text) {
    std::wstring out;
    for (size_t i = 0; i < text.size(); ++i) {
        const wchar_t next = i + 1 < text.size() ? text[i + 1] : L'\0';
        if (text[i] == L'\\' && (next == L't' || next == L'r' || next == L'n')) {
            out += next == L't' ? L'\t' : next == L'r' ? L'\r' : L'\n';
            ++i;
        } else {
            out += text[i];
        }
    }
    return out;
}

}  // namespace tessel
