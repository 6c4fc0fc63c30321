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

    bool Matches(std::wstring_view name) const;
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

    Kind kind_ = Kind::kInvalid;
    std::wstring literal_;  // the plain text of the fast forms
    std::wstring tail_;
    std::vector<Element> elements_;
    std::vector<Set> sets_;
};

}  // namespace tessel
