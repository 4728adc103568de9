#pragma once

#include <string>
#include <string_view>

namespace vardel {

// Saves what is named ("log", "settings", "archive", "exports") again and again until it is killed,
// by itself at such a call (DieAtFileCall) unless that is 0; once and to a usual end where it is
// negative. Tells in lines how many the log held at first, and each save that is done.
int SaveUntilKilled(std::string_view what, const std::string& folder, long call);

// So many actions of a user whose programs share a folder with others', and a usual end. Tells in
// lines what was saved for good.
int WorkBesideOthers(int actions, unsigned seed, const std::string& folder);

// After so many of its calls that change a file the program dies as if it were killed; a write is
// half done then.
void DieAtFileCall(long call);

}  // namespace vardel
