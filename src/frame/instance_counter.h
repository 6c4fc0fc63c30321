#pragma once
// Instances number themselves: the first takes 0, each one started while another runs takes the
// stored number plus one and writes it back ("Tessel_Id"), in the file or, installed, the registry.
#include "core/settings_store.h"

namespace tessel {

int TakeInstanceNumber(ISettingsStore& store, bool anotherInstanceRuns);

}  // namespace tessel
