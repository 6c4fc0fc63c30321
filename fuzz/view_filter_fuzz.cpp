// A filter text typed into the filter box, and the same bytes as a name pattern: parsing never
// fails, and a name always gets an answer.
#include "features/case_fold.h"
#include "features/view_filter.h"
#include "features/wildcard.h"
#include "fuzz_text.h"

using namespace tessel;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::wstring text = fuzz::WideOf(data, size);
    const FilterTokens tokens(text, FoldLowerPortable);
    for (const std::wstring& token : tokens.Tokens()) fuzz::Check(!token.empty() && token.find(L';') == std::wstring::npos);
    FilterSwitches on{1, 0, 1, 1, 1};
    for (const wchar_t* name : {L"", L"readme.txt", L"a\\b.jpg", L"[]*?", L"x.tar.gz", L"name."}) {
        const bool shown = FilterShows(on, tokens, name, false);
        // Looked up by extension or not, the tokens decide as their patterns do one by one.
        bool anyPattern = false;
        for (const std::wstring& token : tokens.Tokens()) anyPattern = anyPattern || WildcardPattern(token).Matches(name);
        if (tokens.Tokens().size() > 1 || (tokens.Tokens().size() == 1 && tokens.Tokens()[0].find(L'*') != std::wstring::npos))
            fuzz::Check(tokens.Matches(name, true) == anyPattern);
        on.by_negativ = 1;
        fuzz::Check(FilterShows(on, tokens, name, false) == (tokens.Empty() || !shown));
        on.by_negativ = 0;
    }
    const WildcardPattern pattern(text);
    fuzz::Check(pattern.IsValid() || !pattern.Matches(text));
    if (pattern.IsValid() && text.find_first_of(L"*?[\\") == std::wstring::npos) fuzz::Check(pattern.Matches(text));
    return 0;
}
