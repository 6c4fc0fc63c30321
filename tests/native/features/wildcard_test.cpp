// The wildcard matcher against the forms users type, and against a plain recursive reference
// over generated names and patterns.
#include <gtest/gtest.h>

#include <random>

#include "features/wildcard.h"

namespace tessel {
namespace {

bool Match(std::wstring_view pattern, std::wstring_view name) { return WildcardPattern(pattern).Matches(name); }

TEST(Wildcard, FormsUsersType) {
    EXPECT_TRUE(Match(L"*.EXE", L"SETUP.EXE"));
    EXPECT_FALSE(Match(L"*.EXE", L"SETUP.EXE.TXT"));
    EXPECT_TRUE(Match(L"*", L""));
    EXPECT_TRUE(Match(L"**", L"ANY"));
    EXPECT_TRUE(Match(L"README*", L"README.MD"));
    EXPECT_TRUE(Match(L"*TXT*", L"MY TXT FILE"));
    EXPECT_TRUE(Match(L"*.MP*", L"SONG.MP3"));
    EXPECT_FALSE(Match(L"*.MP*", L"SONG.OGG"));
    EXPECT_TRUE(Match(L"A?C", L"ABC"));
    EXPECT_FALSE(Match(L"A?C", L"AC"));
    EXPECT_TRUE(Match(L"*A*B*C", L"XAYBZBC"));
    EXPECT_FALSE(Match(L"*A*B*C", L"XAYBZBCD"));
    EXPECT_TRUE(Match(L"TXT", L"TXT"));
    EXPECT_FALSE(Match(L"TXT", L"TXT2"));
}

TEST(Wildcard, SetsRangesAndEscapes) {
    EXPECT_TRUE(Match(L"FILE[0-9].TXT", L"FILE7.TXT"));
    EXPECT_FALSE(Match(L"FILE[0-9].TXT", L"FILEX.TXT"));
    EXPECT_TRUE(Match(L"[^ABC]*", L"DOG"));
    EXPECT_FALSE(Match(L"[^ABC]*", L"CAT"));
    EXPECT_TRUE(Match(L"[]]", L"]")) << "a ']' first in a set is a member";
    EXPECT_TRUE(Match(L"[A-]", L"-"));
    EXPECT_TRUE(Match(L"\\*", L"*"));
    EXPECT_FALSE(Match(L"\\*", L"X"));
    EXPECT_TRUE(Match(L"[\\]]", L"]"));
    EXPECT_TRUE(Match(L"A\\?", L"A?"));
}

TEST(Wildcard, MalformedPatternsMatchNothing) {
    for (std::wstring_view bad : {L"[ABC", L"A\\", L"[", L"[^", L"[]", L"*[A-"}) {
        EXPECT_FALSE(WildcardPattern(bad).IsValid()) << std::wstring(bad).c_str();
        EXPECT_FALSE(Match(bad, L"A"));
        EXPECT_FALSE(Match(bad, L""));
    }
    EXPECT_FALSE(WildcardPattern().Matches(L""));
}

TEST(Wildcard, LongNamesAndPatternsStayFast) {
    const std::wstring name(5000, L'A');
    const std::wstring pattern = std::wstring(20, L'*') + L"A*A*A*A*A*B";
    EXPECT_FALSE(Match(pattern, name));
    EXPECT_TRUE(Match(L"*A*A*A*A*A", name));
}

// Reference: straight recursion on the pattern text, sets read where they stand.
int SetEnd(std::wstring_view p, size_t at, wchar_t c, bool& hit) {  // at: after "["; -1 when unterminated
    bool negated = false;
    if (at < p.size() && p[at] == L'^') negated = true, ++at;
    const size_t first = at;
    bool in = false;
    while (at < p.size() && (p[at] != L']' || at == first)) {
        wchar_t low = p[at];
        if (low == L'\\' && ++at >= p.size()) return -1;
        low = p[at++];
        wchar_t high = low;
        if (at + 1 < p.size() && p[at] == L'-' && p[at + 1] != L']') {
            high = p[at + 1];
            at += 2;
            if (high == L'\\') {
                if (at >= p.size()) return -1;
                high = p[at++];
            }
        }
        in = in || (c >= low && c <= high);
    }
    if (at >= p.size()) return -1;
    hit = in != negated;
    return static_cast<int>(at + 1);
}

bool Valid(std::wstring_view p) {
    for (size_t at = 0; at < p.size();) {
        if (p[at] == L'\\') {
            if (at + 1 >= p.size()) return false;
            at += 2;
        } else if (p[at] == L'[') {
            bool hit;
            const int end = SetEnd(p, at + 1, L'x', hit);
            if (end < 0) return false;
            at = static_cast<size_t>(end);
        } else {
            ++at;
        }
    }
    return true;
}

bool Reference(std::wstring_view p, std::wstring_view n) {
    if (p.empty()) return n.empty();
    if (p[0] == L'*') {
        for (size_t skip = 0; skip <= n.size(); ++skip)
            if (Reference(p.substr(1), n.substr(skip))) return true;
        return false;
    }
    if (n.empty()) return false;
    if (p[0] == L'?') return Reference(p.substr(1), n.substr(1));
    if (p[0] == L'\\') return p[1] == n[0] && Reference(p.substr(2), n.substr(1));
    if (p[0] == L'[') {
        bool hit = false;
        const int end = SetEnd(p, 1, n[0], hit);
        return hit && Reference(p.substr(static_cast<size_t>(end)), n.substr(1));
    }
    return p[0] == n[0] && Reference(p.substr(1), n.substr(1));
}

TEST(Wildcard, AgreesWithReferenceOnGeneratedInput) {
    std::mt19937 random(20261123);
    const std::wstring nameChars = L"ab.-]^";
    const std::wstring patternChars = L"ab.*?[]^-\\";
    int valid = 0, matched = 0;
    for (int i = 0; i < 40000; ++i) {
        std::wstring name, pattern;
        for (int k = random() % 7; k > 0; --k) name += nameChars[random() % nameChars.size()];
        for (int k = random() % 7; k > 0; --k) pattern += patternChars[random() % patternChars.size()];
        const bool expected = Valid(pattern) && Reference(pattern, name);
        ASSERT_EQ(WildcardPattern(pattern).Matches(name), expected)
            << "pattern [" << std::string(pattern.begin(), pattern.end()) << "] name ["
            << std::string(name.begin(), name.end()) << "]";
        valid += Valid(pattern);
        matched += expected;
    }
    EXPECT_GT(valid, 10000);
    EXPECT_GT(matched, 1000) << "the generated cases reach matches, not only failures";
}

}  // namespace
}  // namespace tessel
