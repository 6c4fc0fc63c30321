#include "nav/typed_address.h"

#include <cwctype>

#include "view/location_text.h"

namespace tessel {
namespace {

std::wstring_view TrimBlanks(std::wstring_view text) {
    while (!text.empty() && std::iswspace(text.front())) text.remove_prefix(1);
    while (!text.empty() && std::iswspace(text.back())) text.remove_suffix(1);
    return text;
}

}  // namespace

std::wstring ExpandFirstVariable(std::wstring_view text, const EnvironmentLookup& environment) {
    const size_t open = text.find(L'%');
    const size_t close = open == std::wstring_view::npos ? open : text.find(L'%', open + 1);
    if (close == std::wstring_view::npos || close == open + 1 || !environment) return std::wstring(text);
    std::optional<std::wstring> value = environment(text.substr(open + 1, close - open - 1));
    // Whatever stood before or after the pair goes with it: the value is the whole location.
    if (!value || value->size() > kEnvironmentValueLimit) return std::wstring(text);
    return *value;
}

TypedAddress PlanTypedAddress(std::wstring_view typed, const EnvironmentLookup& environment) {
    TypedAddress plan;
    const std::wstring text = ExpandFirstVariable(TrimBlanks(typed), environment);
    if (text.empty()) return plan;
    plan.shellPath = text;
    std::wstring form = text;
    if (StartsWithNoCase(text, L"file://")) {
        form = NormalizeLocationText(text);  // escapes decoded, slashes turned, host forms kept
    } else if (StartsWithNoCase(text, L"ftp.")) {
        form = L"ftp://" + text;
        if (form.back() != L'/') form += L'/';
    }
    plan.parseForms.push_back(form);
    if (form.size() == 1) plan.parseForms.push_back(form + L":\\");
    if (form.size() == 2) plan.parseForms.push_back(form + L"\\");
    return plan;
}

}  // namespace tessel
