#pragma once
// A counted reference to a COM object; the holder releases it.
#include <unknwn.h>

#include <utility>

namespace tessel::win {

template <typename T>
class ComPtr {
public:
    ComPtr() = default;
    ComPtr(T* p) : p_(p) {  // takes a new reference
        if (p_) p_->AddRef();
    }
    ComPtr(const ComPtr& o) : ComPtr(o.p_) {}
    ComPtr(ComPtr&& o) noexcept : p_(std::exchange(o.p_, nullptr)) {}
    ComPtr& operator=(ComPtr o) noexcept {
        std::swap(p_, o.p_);
        return *this;
    }
    ~ComPtr() { reset(); }

    T* get() const { return p_; }
    T* operator->() const { return p_; }
    explicit operator bool() const { return p_ != nullptr; }
    void reset() {
        if (p_) std::exchange(p_, nullptr)->Release();
    }
    // For out-parameters: releases what is held and hands out the slot.
    T** put() {
        reset();
        return &p_;
    }
    void** put_void() { return reinterpret_cast<void**>(put()); }

    template <typename U>
    ComPtr<U> As() const {
        ComPtr<U> other;
        if (p_) p_->QueryInterface(__uuidof(U), other.put_void());
        return other;
    }

private:
    T* p_ = nullptr;
};

}  // namespace tessel::win
