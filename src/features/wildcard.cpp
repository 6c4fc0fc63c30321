#include "features/wildcard.h"

namespace tessel {

WildcardPattern::WildcardPattern(std::wstring_view pattern) {
    if (Parse(pattern)) Classify();
}

bool WildcardPattern::Set::Contains(wchar_t c) const {
    bool inside = false;
    for (const auto& [low, high] : ranges)
        if (c >= low && c <= high) {
            inside = true;
            break;
        }
    return inside != negated;
}

bool WildcardPattern::Parse(std::wstring_view pattern) {
    for (size_t at = 0; at < pattern.size();) {
        const wchar_t c = pattern[at];
        if (c == L'*') {
            if (elements_.empty() || elements_.back().type != Element::kStar) elements_.push_back({Element::kStar});
            ++at;
        } else if (c == L'?') {
            elements_.push_back({Element::kOne});
            ++at;
        } else if (c == L'\\') {
            if (at + 1 >= pattern.size()) return false;
            elements_.push_back({Element::kChar, pattern[at + 1]});
            at += 2;
        } else if (c == L'[') {
            at = ParseSet(pattern, at + 1);
            if (at == std::wstring_view::npos) return false;
        } else {
            elements_.push_back({Element::kChar, c});
            ++at;
        }
    }
    return true;
}

// A "]" right after "[" or "[^" is a member, as is a "-" at either end of the set.
size_t WildcardPattern::ParseSet(std::wstring_view pattern, size_t at) {
    Set set;
    if (at < pattern.size() && pattern[at] == L'^') {
        set.negated = true;
        ++at;
    }
    const size_t first = at;
    while (at < pattern.size() && (pattern[at] != L']' || at == first)) {
        wchar_t low = pattern[at];
        if (low == L'\\') {
            if (++at >= pattern.size()) return std::wstring_view::npos;
            low = pattern[at];
        }
        ++at;
        wchar_t high = low;
        if (at + 1 < pattern.size() && pattern[at] == L'-' && pattern[at + 1] != L']') {
            high = pattern[at + 1];
            at += 2;
            if (high == L'\\') {
                if (at >= pattern.size()) return std::wstring_view::npos;
                high = pattern[at++];
            }
        }
        set.ranges.emplace_back(low, high);
    }
    if (at >= pattern.size()) return std::wstring_view::npos;
    elements_.push_back({Element::kSet, 0, static_cast<uint32_t>(sets_.size())});
    sets_.push_back(std::move(set));
    return at + 1;
}

// Most patterns are plain text around stars ("*.zip", "readme*"); those skip the general walk.
void WildcardPattern::Classify() {
    size_t tailStart = elements_.size();
    while (tailStart > 0 && elements_[tailStart - 1].type == Element::kChar) --tailStart;
    for (size_t i = tailStart; i < elements_.size(); ++i) tail_ += elements_[i].ch;
    int stars = 0;
    for (const Element& element : elements_) {
        if (element.type == Element::kStar) {
            ++stars;
        } else if (element.type != Element::kChar) {
            kind_ = Kind::kGeneral;
            return;
        }
    }
    const bool leading = !elements_.empty() && elements_.front().type == Element::kStar;
    const bool trailing = !elements_.empty() && elements_.back().type == Element::kStar;
    for (const Element& element : elements_)
        if (element.type == Element::kChar) literal_ += element.ch;
    if (stars == 0) {
        kind_ = Kind::kLiteral;
    } else if (literal_.empty()) {
        kind_ = Kind::kAll;
    } else if (stars == 1 && trailing) {
        kind_ = Kind::kPrefix;
    } else if (stars == 1 && leading) {
        kind_ = Kind::kSuffix;
    } else if (stars == 2 && leading && trailing) {
        kind_ = Kind::kContains;
    } else {
        kind_ = Kind::kGeneral;
        literal_.clear();
    }
}

bool WildcardPattern::ContainsLiteral(std::wstring_view name) const {
    if (literal_.size() > name.size()) return false;
    const size_t last = name.size() - literal_.size();
    for (size_t at = 0; at <= last; ++at)
        if (name[at] == literal_[0] && SameFrom(name.data() + at, 1)) return true;
    return false;
}

bool WildcardPattern::ElementMatches(const Element& element, wchar_t c) const {
    switch (element.type) {
    case Element::kChar:
        return element.ch == c;
    case Element::kOne:
        return true;
    case Element::kSet:
        return sets_[element.set].Contains(c);
    case Element::kStar:
        break;
    }
    return false;
}

// Every element but the star takes exactly one character, so going back to the last star and
// letting it take one more character is enough: no deeper backtracking is ever needed.
bool WildcardPattern::MatchGeneral(std::wstring_view name) const {
    size_t e = 0, n = 0;
    size_t starElement = std::wstring_view::npos, starName = 0;
    while (n < name.size()) {
        if (e < elements_.size() && elements_[e].type == Element::kStar) {
            starElement = e++;
            starName = n;
        } else if (e < elements_.size() && ElementMatches(elements_[e], name[n])) {
            ++e;
            ++n;
        } else if (starElement != std::wstring_view::npos) {
            e = starElement + 1;
            n = ++starName;
        } else {
            return false;
        }
    }
    while (e < elements_.size() && elements_[e].type == Element::kStar) ++e;
    return e == elements_.size();
}

}  // namespace tessel
