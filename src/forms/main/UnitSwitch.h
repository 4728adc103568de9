#pragma once

namespace vardel {

struct Doors;

// Switch what the boxes of all forms with heights show; the quantities stay the same. The check
// mark on the main form is the state: where it stands already, nothing happens. A main form box
// that holds no number gets a message, and nothing is switched.
void SetMetricUnits(Doors& doors);
void SetEnglishUnits(Doors& doors);
// For boxes that hold English numbers already: sets marks and labels only.
void ShowEnglishUnits(Doors& doors);

}  // namespace vardel
