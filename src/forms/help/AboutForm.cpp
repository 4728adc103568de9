#include "forms/help/AboutForm.h"

#include "forms/help/ContextIDs.h"
#include "forms/shared/Palette.h"
#include "services/Platform.h"

namespace vardel {

AboutForm::AboutForm(Platform& platform)
    : Form(platform, "AboutForm", "About dB Loss Calculation") {
    SetHelpContextID(HelpTopic::About);
    SetOwnColors();
    Label1.SetForeColor({0, 64, 64});
    Line1.SetForeColor(Teal);
    Image1.SetPictureFile(platform.programDirectory + "/about.bmp");
    Image1.SetStateText("A radio mast on a hill sends its waves over a city and a car");
    lblVersion.SetCaption("Version " + platform.applicationVersion);
    cmdOK.Click = [this] { Unload(); };
}

}  // namespace vardel
