#pragma once

namespace vardel {

class Form;
class Help;
struct Platform;
struct SharedData;

// Names the help file beside the program, to which F1 goes from now on.
void SetHelpFile(SharedData& shared, Form& owner);
// Closes the help viewer, if it is open.
void CloseHelp(SharedData& shared, Help& help);
// Opens the manual with whatever the system has for it. A missing one gives no message.
void OpenManual(Platform& platform);

}  // namespace vardel
