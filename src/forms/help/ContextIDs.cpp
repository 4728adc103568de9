#include "forms/help/ContextIDs.h"

#include "forms/Program.h"

namespace vardel {

void SetHelpFile(Program& program, Form& owner) {
    program.HelpOwnerWindow = &owner;
    program.platform.help.SetFile(program.platform.programDirectory + "/Palvern.HLP");
}

void CloseHelp(Program& program) {
    program.platform.help.Quit();
    program.HelpOwnerWindow = nullptr;
}

void OpenManual(Program& program) {
    program.platform.help.OpenDocument(program.platform.programDirectory + "/Vardel.chm");
}

}  // namespace vardel
