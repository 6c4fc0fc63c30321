#pragma once
// Owning wrappers for kernel handles, GDI objects, icons, menus and item identifier lists.
#include <windows.h>
#include <shlobj.h>

#include <utility>

namespace tessel::win {

template <typename T, typename Traits>
class Unique {
public:
    Unique() = default;
    explicit Unique(T value) : value_(value) {}
    Unique(const Unique&) = delete;
    Unique& operator=(const Unique&) = delete;
    Unique(Unique&& other) noexcept : value_(other.release()) {}
    Unique& operator=(Unique&& other) noexcept {
        reset(other.release());
        return *this;
    }
    ~Unique() { reset(); }

    T get() const { return value_; }
    explicit operator bool() const { return Traits::Valid(value_); }
    T release() { return std::exchange(value_, Traits::Invalid()); }
    void reset(T value = Traits::Invalid()) {
        if (Traits::Valid(value_)) Traits::Close(value_);
        value_ = value;
    }

private:
    T value_ = Traits::Invalid();
};

struct HandleTraits {  // CreateFile and friends answer INVALID_HANDLE_VALUE, others null
    static HANDLE Invalid() { return nullptr; }
    static bool Valid(HANDLE h) { return h && h != INVALID_HANDLE_VALUE; }
    static void Close(HANDLE h) { CloseHandle(h); }
};
// Pointer-like handles: null is "none", and one function releases them.
template <typename T, auto CloseFunction>
struct PointerTraits {
    static T Invalid() { return nullptr; }
    static bool Valid(T h) { return h != nullptr; }
    static void Close(T h) { CloseFunction(h); }
};
inline void DeleteGdiObject(HGDIOBJ object) { DeleteObject(object); }
inline void FreePidl(PIDLIST_ABSOLUTE pidl) { CoTaskMemFree(pidl); }
inline void FreeGlobal(HGLOBAL block) { GlobalFree(block); }

using UniqueHandle = Unique<HANDLE, HandleTraits>;
using UniqueFont = Unique<HFONT, PointerTraits<HFONT, DeleteGdiObject>>;
using UniqueBitmap = Unique<HBITMAP, PointerTraits<HBITMAP, DeleteGdiObject>>;
using UniqueBrush = Unique<HBRUSH, PointerTraits<HBRUSH, DeleteGdiObject>>;
using UniqueIcon = Unique<HICON, PointerTraits<HICON, DestroyIcon>>;
using UniqueMenu = Unique<HMENU, PointerTraits<HMENU, DestroyMenu>>;
using UniquePidl = Unique<PIDLIST_ABSOLUTE, PointerTraits<PIDLIST_ABSOLUTE, FreePidl>>;
using UniqueGlobal = Unique<HGLOBAL, PointerTraits<HGLOBAL, FreeGlobal>>;

}  // namespace tessel::win
