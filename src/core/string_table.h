#pragma once
// Numbered user-visible texts in the chosen language, with English behind every gap.
#include <string>
#include <string_view>
#include <vector>

namespace tessel {

// One language's entries in pack order; lookup takes the first entry with the id.
class StringTable {
public:
    void Parse(std::wstring_view packText);  // replaces the contents
    const std::wstring* Find(int id) const;
    size_t size() const { return ids_.size(); }
    int IdAt(size_t index) const { return ids_[index]; }
    const std::wstring& TextAt(size_t index) const { return texts_[index]; }
    void clear() { ids_.clear(); texts_.clear(); }

private:
    std::vector<int> ids_;
    std::vector<std::wstring> texts_;
};

// Pack code of a language number ("DE" for 0, "EN" for 1 and 4 and unknown numbers, ...).
const wchar_t* LanguageCode(int languageId);
// The language numbers with a code of their own, in order (4 only borrows English).
std::vector<int> LanguageIds();

class ILanguagePacks {
public:
    virtual ~ILanguagePacks() = default;
    // The text named code + "-STRING"; empty when the program carries no such pack.
    virtual std::wstring LoadText(std::wstring_view code) = 0;
};

class Strings {
public:
    // languageId points at the option that picks the language; a change there reloads.
    Strings(ILanguagePacks& packs, const int& languageId) : packs_(packs), languageId_(languageId) {}

    std::wstring GetText(int id);
    void SetShowMissingIds(bool show) { showMissing_ = show; }
    bool ShowsMissingIds() const { return showMissing_; }
    void Invalidate() { loaded_ = englishLoaded_ = false; }  // the packs changed: read them again

private:
    void Reload();

    ILanguagePacks& packs_;
    const int& languageId_;
    int loadedLanguage_ = -1;
    bool loaded_ = false;
    bool englishLoaded_ = false;
    bool showMissing_ = false;
    StringTable current_;
    StringTable english_;
};

}  // namespace tessel
