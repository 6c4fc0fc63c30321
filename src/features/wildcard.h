#pragma once
// Name patterns of the colour rules and the view filter: "*" any run of characters (none
// included), "?" one character, "[abc]" one of a set, "[^abc]" one not in it, "a-z" a range
// inside a set, "\" takes the next character literally. A malformed pattern (an unterminated
// set, a trailing "\") matches nothing. Matching is exact: callers fold the case of both sides.
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tessel {

class WildcardPattern {
public:
    WildcardPattern() = default;  // matches nothing
    explicit WildcardPattern(std::wstring_view pattern);

    // Inline: the colour rules and the filter ask it for every listed name.
    bool Matches(std::wstring_view name) const {
        switch (kind_) {
        case Kind::kInvalid:
            return false;
        case Kind::kAll:
            return true;
        case Kind::kLiteral:
            return name.size() == literal_.size() && SameFrom(name.data(), 0);
        case Kind::kPrefix:
            return name.size() >= literal_.size() && SameFrom(name.data(), 0);
        case Kind::kSuffix:  // from the end: ".ZIP" differs from most names in its last letter
            return name.size() >= literal_.size() && SameFromEnd(name.data() + name.size() - literal_.size());
        case Kind::kContains:
            return ContainsLiteral(name);
        case Kind::kGeneral:
            break;
        }
        return MatchGeneral(name);
    }
    bool IsValid() const { return kind_ != Kind::kInvalid; }
    // The plain text every matching name ends with ("*.ZIP", "[0-9]*.TXT", "THUMBS.DB"), or empty.
    std::wstring_view RequiredSuffix() const { return tail_; }

private:
    enum class Kind : uint8_t { kInvalid, kAll, kLiteral, kPrefix, kSuffix, kContains, kGeneral };
    struct Element {
        enum Type : uint8_t { kChar, kOne, kSet, kStar } type;
        wchar_t ch = 0;        // kChar
        uint32_t set = 0;      // kSet: index into sets_
    };
    struct Set {
        bool negated = false;
        std::vector<std::pair<wchar_t, wchar_t>> ranges;  // inclusive
        bool Contains(wchar_t c) const;
    };

    bool Parse(std::wstring_view pattern);
    size_t ParseSet(std::wstring_view pattern, size_t at);  // after "[", returns past "]" or npos
    void Classify();
    bool ElementMatches(const Element& element, wchar_t c) const;
    bool MatchGeneral(std::wstring_view name) const;
    bool ContainsLiteral(std::wstring_view name) const;
    bool SameFrom(const wchar_t* text, size_t from) const {
        for (size_t i = from; i < literal_.size(); ++i)
            if (text[i] != literal_[i]) return false;
        return true;
    }
    bool SameFromEnd(const wchar_t* text) const {
        for (size_t i = literal_.size(); i-- > 0;)
            if (text[i] != literal_[i]) return false;
        return true;
    }

    Kind kind_ = Kind::kInvalid;
    std::wstring literal_;  // the plain text of the fast forms
    std::wstring tail_;
    std::vector<Element> elements_;
    std::vector<Set> sets_;
};

}  // namespace tessel
