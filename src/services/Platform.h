#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "services/Clock.h"
#include "services/Picture.h"
#include "services/TextFont.h"
#include "services/settings/SettingsStore.h"

// What the program asks of the outside.

namespace vardel {

class Chart;
class Form;
enum class ChartFileKind;

enum class Answer { Ok, Cancel, Yes, No };

// A message box. An empty title stands for the application's.
struct Message {
    enum class Buttons { Ok, OkCancel, YesNo };
    enum class Icon { None, Critical };

    std::string text;
    std::string title = {};
    Buttons buttons = Buttons::Ok;
    Icon icon = Icon::None;
    Answer closed = Answer::No;  // what closing a question of yes and no by its frame answers
};

// A file dialog. The filters are pairs of a description and a pattern, separated by "|", or one
// pattern, and count from 1.
struct FileDialog {
    std::string folder;
    std::string filters;
    int filterIndex = 1;
    std::string name = {};  // that the dialog suggests; empty: none
};

// What the user has chosen there; the filter counts from 1.
struct SaveChoice {
    std::string path;
    int filterIndex = 1;
};

// A box that asks for a line of text.
struct TextQuestion {
    std::string prompt;
    std::string title;
    std::string text;  // the answer proposed
};

// The windows of the forms, and the dialogs over them.
class Windows {
public:
    virtual ~Windows() = default;

    // Makes the form's window the active one, and returns at once.
    virtual void Show(Form& form) = 0;
    // Blocks all other forms; returns once the form is no longer visible.
    virtual void ShowModal(Form& form, Form* owner) = 0;
    // The form has ended: nothing of it is shown or announced any more. It is destroyed with its
    // window, which may have an event on the stack.
    virtual void Forget(std::unique_ptr<Form> form) = 0;

    virtual Answer ShowMessage(const Message& message) = 0;
    // Nothing when the user names no file. There is no question before a file that exists.
    virtual std::optional<SaveChoice> AskSaveFile(const FileDialog& dialog) = 0;
    // A path, of a file that need not exist; nothing when the user names none.
    virtual std::optional<std::string> AskOpenFile(const FileDialog& dialog) = 0;
    // A folder that exists; nothing when the user names none.
    virtual std::optional<std::string> AskFolder() = 0;
    // An empty text when the user cancels.
    virtual std::string AskText(const TextQuestion& question) = 0;
    // Lets the window system handle what has come in meanwhile. Any event routine may run.
    virtual void Yield() = 0;
    // Likewise, but what the user does meanwhile waits for the next of the other kind.
    virtual void YieldWithoutInput() = 0;
    // Ends the event loop, once what is on the stack has returned.
    virtual void EndProgram() = 0;
    // Whether that was asked for: no event routine begins any more.
    virtual bool IsEnding() const = 0;
    // Says a text to a screen reader, which by itself reads only what changes where the focus is.
    virtual void Announce(const std::string& text) = 0;
    // Likewise once nothing more has come to be said for a second, as while somebody types.
    virtual void AnnounceAtRest(const std::string& text) = 0;
};

// The desktop's clipboard. Texts are UTF-8.
class Clipboard {
public:
    virtual ~Clipboard() = default;
    // Nothing when the clipboard holds no picture.
    virtual std::optional<Picture> GetPicture() = 0;
    virtual std::string GetText() = 0;  // empty: there is none
    virtual void SetPicture(const Picture& picture) = 0;
    // With the same as CSV beside it for spreadsheets, unless that is empty.
    virtual void SetText(const std::string& text, const std::string& csv) = 0;
    virtual void Clear() = 0;
};

// Draws charts, for everything but the screen: all that is drawn looks as it does there.
class ChartDrawing {
public:
    virtual ~ChartDrawing() = default;
    virtual Picture PictureOf(const Chart& chart) = 0;
    // A placeable Windows metafile.
    virtual std::string MetafileOf(const Chart& chart) = 0;
    // A file of the kind, in the chart's frame, with the chart's inputs as its metadata.
    virtual std::string FileOf(const Chart& chart, ChartFileKind kind) = 0;
};

enum class PageOrientation { Portrait = 1, Landscape = 2 };

// The printers of the system, and one more that prints to a PDF file. What is not said of a certain
// printer is asked of the current one; each printer has an orientation of its own.
class Printers {
public:
    virtual ~Printers() = default;

    virtual std::vector<std::string> PrinterNames() = 0;
    virtual std::string CurrentPrinter() = 0;  // empty: there is none
    virtual void SetCurrentPrinter(const std::string& name) = 0;
    // Printing then needs the path of a file, which is written whole or not at all.
    virtual bool PrintsToFile() = 0;
    virtual PageOrientation Orientation() = 0;
    virtual void SetOrientation(PageOrientation orientation) = 0;
    virtual void SetFont(const TextFont& font) = 0;

    // Adds a line to the document, or several that are separated by line ends.
    virtual void PrintText(std::string_view text) = 0;
    // Sends what was added to the printer; the next document begins empty. Throws where that fails,
    // as does the next.
    virtual void EndDocument(const std::string& title, const std::string& file) = 0;
    virtual void PrintChart(const Chart& chart, const std::string& file) = 0;
    // The user chooses printer, paper and orientation in a dialog.
    virtual void ShowPrinterSetup() = 0;
};

// The viewer of the help, and of documents that belong to other programs.
class Help {
public:
    virtual ~Help() = default;
    // F1 shows its topics from now on.
    virtual void SetFile(const std::string& path) = 0;
    virtual void Quit() = 0;
    // With the system's default action, its result not looked at.
    virtual void OpenDocument(const std::string& path) = 0;
};

// All of it, as the forms have it.
struct Platform {
    Windows& windows;
    SettingsStore& settings;
    Help& help;
    Clipboard& clipboard;
    ChartDrawing& charts;
    Printers& printers;
    Clock& clock;
    std::string applicationTitle;
    std::string applicationVersion;
    std::string programDirectory;  // without a separator at its end, as is the next
    std::string stateDirectory;    // the user's own, for what outlives the program
    bool decimalComma = false;     // whether other programs of the user write numbers with one
};

}  // namespace vardel
