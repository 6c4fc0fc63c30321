#include "frame/instance_counter.h"

#include <climits>

namespace tessel {

int TakeInstanceNumber(ISettingsStore& store, bool anotherInstanceRuns) {
    int number = 0;
    if (anotherInstanceRuns) {
        int stored = store.IsFileMode() ? store.GetInt(L"Start", L"Tessel_Id", number)
                                        : store.RegGetInt(L"Tessel_Id", number);
        number = stored < INT_MAX ? stored + 1 : 0;  // a damaged counter starts over
    }
    if (store.IsFileMode())
        store.PutInt(L"Start", L"Tessel_Id", number);
    else
        store.RegPutInt(L"Tessel_Id", number);
    return number;
}

}  // namespace tessel
