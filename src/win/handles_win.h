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
template <typename T>
struct GdiTraits {
    static T Invalid() { return nullptr; }
    static bool Valid(T h) { return h != nullptr; }
    static void Close(T h) { DeleteObject(h); }
};
struct IconTraits {
    static HICON Invalid() { return nullptr; }
    static bool Valid(HICON h) { return h != nullptr; }
    static void Close(HICON h) { DestroyIcon(h); }
};
struct MenuTraits {
    static HMENU Invalid() { return nullptr; }
    static bool Valid(HMENU h) { return h != nullptr; }
    static void Close(HMENU h) { DestroyMenu(h); }
};
struct PidlTraits {
    static PIDLIST_ABSOLUTE Invalid() { return nullptr; }
    static bool Valid(PIDLIST_ABSOLUTE p) { return p != nullptr; }
    static void Close(PIDLIST_ABSOLUTE p) { CoTaskMemFree(p); }
};

using UniqueHandle = Unique<HANDLE, HandleTraits>;
using UniqueFont = Unique<HFONT, GdiTraits<HFONT>>;
using UniqueBitmap = Unique<HBITMAP, GdiTraits<HBITMAP>>;
using UniqueBrush = Unique<HBRUSH, GdiTraits<HBRUSH>>;
using UniqueIcon = Unique<HICON, IconTraits>;
using UniqueMenu = Unique<HMENU, MenuTraits>;
using UniquePidl = Unique<PIDLIST_ABSOLUTE, PidlTraits>;

}  // namespace tessel::win
