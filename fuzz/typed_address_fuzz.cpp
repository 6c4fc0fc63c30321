// Text typed or pasted into the address bar: blanks, one "%NAME%" expansion standing for the
// whole text, "file://" and "ftp." forms, bare drive letters. Variables are answered by a fixed
// table, one of them longer than any value taken.
#include "fuzz_text.h"
#include "nav/typed_address.h"

using namespace tessel;

namespace {

std::optional<std::wstring> Environment(std::wstring_view name) {
    if (name == L"A") return L"C:\\a";
    if (name == L"LONG") return std::wstring(kEnvironmentValueLimit + 1, L'x');
    if (name.size() == 1) return L"";
    return std::nullopt;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::wstring text = fuzz::WideOf(data, size);
    const TypedAddress plan = PlanTypedAddress(text, &Environment);
    fuzz::Check(plan.parseForms.size() <= 2);
    fuzz::Check(plan.shellPath.empty() == plan.parseForms.empty());
    fuzz::Check(plan.shellPath.size() <= text.size() || plan.shellPath.size() <= kEnvironmentValueLimit);
    for (const std::wstring& form : plan.parseForms) fuzz::Check(form.size() <= plan.shellPath.size() + 7);
    return 0;
}
