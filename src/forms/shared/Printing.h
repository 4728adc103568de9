#pragma once

#include <functional>
#include <string>

namespace vardel {

class Form;

// Prints on the program's current printer, under the hourglass. Where that one prints to files, the
// user is asked for one first, with the title as the suggested name; print is called with its path,
// else with an empty text. What print throws, and that there is no printer, is shown.
void PrintOnCurrentPrinter(Form& form, const std::string& title,
                           const std::function<void(const std::string& file)>& print);

}  // namespace vardel
