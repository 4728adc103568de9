#include "forms/help/ContextIDs.h"

#include "controls/Form.h"
#include "forms/SharedData.h"
#include "services/Platform.h"

namespace vardel {

void SetHelpFile(SharedData& shared, Form& owner) {
    shared.HelpOwnerWindow = &owner;
    Platform& platform = owner.GetPlatform();
    platform.help.SetFile(platform.programDirectory + "/Palvern.HLP");
}

void CloseHelp(SharedData& shared, Help& help) {
    help.Quit();
    shared.HelpOwnerWindow = nullptr;
}

void OpenManual(Platform& platform) {
    platform.help.OpenDocument(platform.programDirectory + "/Vardel.chm");
}

}  // namespace vardel
