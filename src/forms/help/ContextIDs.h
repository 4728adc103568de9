#pragma once

namespace vardel {

class Form;
class Help;
struct Platform;
struct SharedData;

// The topics of the context help.
enum HelpTopic : int {
    TopicInputs = 10,
    TopicArea = 30,
    TopicFileMenu = 210,
    TopicUnitsMenu = 220,
    TopicCalculation = 230,
    TopicHelpMenu = 240,
    TopicAbout = 250,
    TopicFieldStrengthGraphs = 300,
    TopicPercentTime = 330,
    TopicPercentLocation = 340,
    TopicReportLog = 400,
    TopicPrinting = 410,
};

// Names the help file beside the program, to which F1 goes from now on.
void SetHelpFile(SharedData& shared, Form& owner);
// Closes the help viewer, if it is open.
void CloseHelp(SharedData& shared, Help& help);
// Opens the manual with whatever the system has for it. A missing one gives no message.
void OpenManual(Platform& platform);

}  // namespace vardel
