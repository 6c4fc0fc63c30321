#include "features/rule_index.h"

#include <algorithm>
#include <cstdio>
#include <map>

namespace tessel {
namespace {

constexpr unsigned kKnownFlags = 0x80000000u;  // the folder and hidden answers are in

// A plain loop: the library's search is generic and shows in the time of every listed item.
std::wstring_view ExtensionOf(std::wstring_view text) {
    for (size_t at = text.size(); at-- > 0;)
        if (text[at] == L'.') return text.substr(at);
    return {};
}

// Over the characters from the last to the first, so a name's extension is found and hashed in
// one backward pass.
size_t HashOf(std::wstring_view text) {
    uint32_t hash = 2166136261u;
    for (size_t at = text.size(); at-- > 0;) hash = (hash ^ static_cast<uint32_t>(text[at])) * 16777619u;
    return hash;
}

// The extension ("" for none) and its hash, in one pass from the end.
std::wstring_view ExtensionAndHash(std::wstring_view text, size_t& hash) {
    uint32_t running = 2166136261u;
    for (size_t at = text.size(); at-- > 0;) {
        running = (running ^ static_cast<uint32_t>(text[at])) * 16777619u;
        if (text[at] == L'.') {
            hash = running;
            return text.substr(at);
        }
    }
    return {};
}

// Takes a rule's style value into the running result when that style is still open.
void TakeStyle(int value, int& style, int bit, int& flags, int& open) {
    if (style != -1 || value == -1) return;
    style = value;
    open &= ~bit;
    if (value != 0) flags |= bit;
}

}  // namespace

void RuleIndex::Rebuild(const RuleTable& table, CaseFold upper) {
    entries_.clear();
    bgActive_ = bgOther_ = starColour_ = kNoColour;
    std::map<std::wstring, Entry> byToken;
    int priority = 0;
    for (int slot = 0; slot < table.count; ++slot) {
        const ColourRule& rule = table.slots[slot];
        if (!rule.enabled) continue;
        std::wstring pattern = rule.pattern;
        std::replace(pattern.begin(), pattern.end(), L',', L';');
        for (size_t start = 0; start <= pattern.size();) {
            size_t end = std::min(pattern.find(L';', start), pattern.size());
            std::wstring token = pattern.substr(start, end - start);
            start = end + 1;
            if (token.empty()) continue;
            std::wstring folded = token;
            upper(folded.data(), folded.size());
            if (folded.starts_with(L"#BG-A")) {
                bgActive_ = rule.colour;
            } else if (folded.starts_with(L"#BG")) {
                bgOther_ = rule.colour;
            } else {
                byToken[folded] = Entry{token, folded, {}, TokenKind::kPattern, rule.colour, rule.italic,
                                        rule.underline, rule.bold, rule.strikeout, priority++};
            }
            if (folded.starts_with(L"*")) starColour_ = rule.colour;  // the last one decides
        }
    }
    for (auto& [folded, entry] : byToken) entries_.push_back(std::move(entry));
    std::sort(entries_.begin(), entries_.end(), [](const Entry& a, const Entry& b) { return a.priority < b.priority; });
    for (Entry& entry : entries_) {
        if (entry.upper.starts_with(L"#DIR")) entry.kind = TokenKind::kFolder;
        else if (entry.upper.starts_with(L"#RO")) entry.kind = TokenKind::kReadOnly;
        else if (entry.upper.starts_with(L"#")) entry.kind = TokenKind::kHidden;
        else if (entry.upper == L"*") entry.kind = TokenKind::kAll;
        else entry.pattern = WildcardPattern(entry.upper);
    }
    int styles = 0;
    bool colour = false;
    for (auto entry = entries_.rbegin(); entry != entries_.rend(); ++entry) {
        styles |= (entry->italic != -1 ? kStyleItalic : 0) | (entry->bold != -1 ? kStyleBold : 0) |
                  (entry->underline != -1 ? kStyleUnderline : 0) | (entry->strikeout != -1 ? kStyleStrikeout : 0);
        colour = colour || entry->colour != kNoColour;
        entry->laterStyles = styles;
        entry->laterColour = colour;
    }
    IndexByExtension();
}

// A "*.ext" token can only match names ending in ".ext": such tokens are looked up by the
// name's extension instead of being tried one by one.
void RuleIndex::IndexByExtension() {
    general_.clear();
    byExtension_.clear();
    for (size_t i = 0; i < entries_.size(); ++i) {
        const std::wstring_view extension =
            entries_[i].kind == TokenKind::kPattern ? ExtensionOf(entries_[i].pattern.RequiredSuffix()) : L"";
        if (extension.empty()) {
            general_.push_back(static_cast<uint16_t>(i));
            continue;
        }
        auto at = std::find_if(byExtension_.begin(), byExtension_.end(), [&](const auto& e) { return e.first == extension; });
        if (at == byExtension_.end()) at = byExtension_.insert(at, {std::wstring(extension), {}});
        at->second.push_back(static_cast<uint16_t>(i));
    }
    // Each extension's list holds the general entries too, in priority order: one walk per name.
    for (auto& [extension, indices] : byExtension_) {
        Indices merged(indices.size() + general_.size());
        std::merge(indices.begin(), indices.end(), general_.begin(), general_.end(), merged.begin());
        indices = std::move(merged);
    }
    size_t size = 16;
    while (size < 2 * byExtension_.size()) size *= 2;
    extensionSlots_.assign(size, -1);
    for (size_t e = 0; e < byExtension_.size(); ++e) {
        size_t slot = HashOf(byExtension_[e].first) & (size - 1);
        while (extensionSlots_[slot] >= 0) slot = (slot + 1) & (size - 1);
        extensionSlots_[slot] = static_cast<int32_t>(e);
    }
}

const RuleIndex::Indices* RuleIndex::CandidatesFor(std::wstring_view upperName) const {
    if (byExtension_.empty()) return nullptr;
    size_t hash = 0;
    const std::wstring_view extension = ExtensionAndHash(upperName, hash);
    if (extension.empty()) return nullptr;
    const size_t mask = extensionSlots_.size() - 1;
    for (size_t slot = hash & mask; extensionSlots_[slot] >= 0; slot = (slot + 1) & mask) {
        const auto& [key, indices] = byExtension_[static_cast<size_t>(extensionSlots_[slot])];
        if (key.size() != extension.size()) continue;
        size_t i = 0;
        while (i < key.size() && key[i] == extension[i]) ++i;
        if (i == key.size()) return &indices;
    }
    return nullptr;
}

bool RuleIndex::EntryMatches(const Entry& entry, std::wstring_view upperName, IItemAttributes& item,
                             unsigned& known) const {
    switch (entry.kind) {
    case TokenKind::kAll:
        return true;
    case TokenKind::kPattern:
        return entry.pattern.Matches(upperName);
    default:
        break;
    }
    if (!(known & kKnownFlags)) known = item.Attributes(kAttrFolder | kAttrHidden) | kKnownFlags;
    if (entry.kind == TokenKind::kFolder) return known & kAttrFolder;
    if (entry.kind == TokenKind::kHidden) return known & kAttrHidden;
    // A drive root (empty name) and a read-only "a.b" are never taken for read-only files.
    return !(known & kAttrFolder) && upperName.size() >= 4 && (item.Attributes(kAttrReadOnly) & kAttrReadOnly);
}

// Walks the tokens in priority order and stops once no later token can change the result.
int RuleIndex::Match(std::wstring_view upperName, IItemAttributes& item, int* flags) const {
    int colour = kNoColour, italic = -1, bold = -1, underline = -1, strikeout = -1, styleFlags = 0;
    int openStyles = flags ? kStyleItalic | kStyleBold | kStyleUnderline | kStyleStrikeout : 0;
    unsigned known = 0;
    const Indices* candidates = CandidatesFor(upperName);
    for (const uint16_t index : candidates ? *candidates : general_) {
        const Entry& entry = entries_[index];
        if ((colour != kNoColour || !entry.laterColour) && !(openStyles & entry.laterStyles)) break;
        if (!EntryMatches(entry, upperName, item, known)) continue;
        if (colour == kNoColour) colour = entry.colour;
        if (!flags) continue;
        TakeStyle(entry.italic, italic, kStyleItalic, styleFlags, openStyles);
        TakeStyle(entry.bold, bold, kStyleBold, styleFlags, openStyles);
        TakeStyle(entry.underline, underline, kStyleUnderline, styleFlags, openStyles);
        TakeStyle(entry.strikeout, strikeout, kStyleStrikeout, styleFlags, openStyles);
    }
    if (flags) *flags = styleFlags;
    return colour;
}

std::wstring RuleIndex::PriorityText() const {
    std::wstring text = L"Total :" + std::to_wstring(entries_.size()) + L"\n----\n";
    for (const Entry& entry : entries_) {
        wchar_t line[96];
        std::swprintf(line, 96, L"Priority %03d [\t%d\t%d\t%d\t%d]\t[", entry.priority, entry.italic, entry.bold,
                      entry.underline, entry.strikeout);
        text += line;
        text += entry.token + L"]\n";
    }
    return text;
}

}  // namespace tessel
