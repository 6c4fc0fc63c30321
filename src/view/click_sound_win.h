#pragma once
// The click of a navigation, played by a thread of its own: starting a sound costs the caller
// several milliseconds, which a navigation should not wait for.
namespace tessel {

void PlayNavigationClick();

}  // namespace tessel
