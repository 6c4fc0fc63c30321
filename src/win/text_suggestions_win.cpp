#include "win/text_suggestions_win.h"

#include <objbase.h>
#include <shldisp.h>
#include <shlguid.h>
#include <shlobj.h>

#include <atomic>

#include "win/com_ptr_win.h"

namespace tessel::win {
namespace {

// The texts as the drop-down reads them: taken from the source at every Reset.
class SuggestionList final : public IEnumString {
public:
    explicit SuggestionList(SuggestionSource source) : source_(std::move(source)) { texts_ = source_(); }

    STDMETHODIMP QueryInterface(REFIID riid, void** object) override {
        if (!object) return E_POINTER;
        *object = riid == IID_IUnknown || riid == IID_IEnumString ? static_cast<IEnumString*>(this) : nullptr;
        if (!*object) return E_NOINTERFACE;
        AddRef();
        return S_OK;
    }
    STDMETHODIMP_(ULONG) AddRef() override { return ++references_; }
    STDMETHODIMP_(ULONG) Release() override {
        const ULONG left = --references_;
        if (left == 0) delete this;
        return left;
    }
    STDMETHODIMP Next(ULONG count, LPOLESTR* out, ULONG* fetched) override {
        ULONG given = 0;
        for (; given < count && next_ < texts_.size(); ++given, ++next_) {
            const std::wstring& text = texts_[next_];
            const size_t bytes = (text.size() + 1) * sizeof(wchar_t);
            out[given] = static_cast<LPOLESTR>(CoTaskMemAlloc(bytes));
            if (!out[given]) break;
            memcpy(out[given], text.c_str(), bytes);
        }
        if (fetched) *fetched = given;
        return given == count ? S_OK : S_FALSE;
    }
    STDMETHODIMP Skip(ULONG count) override {
        next_ += count;
        return next_ <= texts_.size() ? S_OK : S_FALSE;
    }
    STDMETHODIMP Reset() override {
        texts_ = source_();
        next_ = 0;
        return S_OK;
    }
    STDMETHODIMP Clone(IEnumString** copy) override {
        if (!copy) return E_POINTER;
        *copy = new SuggestionList(source_);
        return S_OK;
    }

private:
    ~SuggestionList() = default;
    std::atomic<ULONG> references_{1};
    SuggestionSource source_;
    std::vector<std::wstring> texts_;
    size_t next_ = 0;
};

}  // namespace

bool AttachTextSuggestions(HWND edit, SuggestionSource source) {
    ComPtr<IAutoComplete> complete;
    if (FAILED(CoCreateInstance(CLSID_AutoComplete, nullptr, CLSCTX_INPROC_SERVER, IID_IAutoComplete, complete.put_void())))
        return false;
    ComPtr<IEnumString> list;
    *list.put() = new SuggestionList(std::move(source));
    if (FAILED(complete->Init(edit, list.get(), nullptr, nullptr))) return false;
    if (ComPtr<IAutoComplete2> options = complete.As<IAutoComplete2>())
        options->SetOptions(ACO_AUTOSUGGEST | ACO_UPDOWNKEYDROPSLIST);
    return true;
}

}  // namespace tessel::win
