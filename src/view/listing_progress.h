#pragma once
// While a folder is being listed the GUI thread is the view's: the list and the status bar stand
// still. The view asks about each item it lists, and this tells when a sign of the work is due:
// first once the listing has taken half a second, then every 200 ms. The clock is asked only
// every few items.
namespace tessel {

class ListingProgress {
public:
    static constexpr double kFirstMs = 500;
    static constexpr double kEveryMs = 200;
    static constexpr int kItemsPerLook = 256;

    void Begin(double nowMs) {
        start_ = nowMs;
        shown_ = -1;
        items_ = 0;
        listing_ = true;
    }
    void End() { listing_ = false; }
    // One more item listed; true when a notice is due. `clock` answers the time in ms.
    template <typename Clock>
    bool Step(Clock clock) {
        if (!listing_ || ++items_ % kItemsPerLook != 0) return false;
        const double now = clock();
        if (now - start_ < firstMs || (shown_ >= 0 && now - shown_ < kEveryMs)) return false;
        shown_ = now;
        return true;
    }
    int Items() const { return items_; }
    double firstMs = kFirstMs;  // the tests ask sooner

private:
    double start_ = 0;
    double shown_ = -1;
    int items_ = 0;
    bool listing_ = false;
};

}  // namespace tessel
