#pragma once

#include <filesystem>
#include <functional>
#include <map>
#include <queue>
#include <vector>

#include "controls/Form.h"
#include "services/Platform.h"

namespace vardel {

// A folder of the test's own, gone with it.
class ScratchFolder {
public:
    ScratchFolder();
    ~ScratchFolder();
    std::string Path(const std::string& name = {}) const;

private:
    std::filesystem::path path_;
};

// The outside of a program under test: what it shows is written down, what a user would do is told
// beforehand.
class FakePlatform : public Windows,
                     public SettingsStore,
                     public Help,
                     public Clipboard,
                     public ChartDrawing,
                     public Printers,
                     public Clock {
public:
    Platform Services() {
        const std::string state = folder.Path("state");
        return {*this, *this,    *this,   *this,         *this, *this,
                *this, "Vardel", "1.2.3", folder.Path(), state};
    }

    void Show(Form& form) override { shown.push_back(form.Name()); }
    void ShowModal(Form& form, Form*) override;
    void Forget(std::unique_ptr<Form>) override {}
    Answer ShowMessage(const Message& message) override;
    std::optional<SaveChoice> AskSaveFile(const FileDialog& dialog) override;
    std::optional<std::string> AskOpenFile(const FileDialog& dialog) override;
    std::optional<std::string> AskFolder() override { return openChoice; }
    std::string AskText(const TextQuestion& question) override;
    void Yield() override;
    void YieldWithoutInput() override { Yield(); }
    void EndProgram() override { ended = true; }
    bool IsEnding() const override { return false; }
    void Announce(const std::string&) override {}
    void AnnounceAtRest(const std::string& text) override { announcedAtRest = text; }
    std::string Read(const std::string& application, const std::string& section,
                     const std::string& key) override {
        return store[application + '/' + section + '/' + key];
    }
    void Write(const std::string& application, const std::string& section, const std::string& key,
               const std::string& text) override {
        store[application + '/' + section + '/' + key] = text;
        writes.push_back(key);
    }
    std::string FailedFile(const std::string& application) const override {
        return application == failingStore ? application + ".ini" : std::string();
    }
    void Delete(const std::string& application, const std::string& section,
                const std::string& key) override {
        store.erase(application + '/' + section + '/' + key);
    }
    void SetFile(const std::string& path) override { helpFile = path; }
    void Quit() override { helpFile.clear(); }
    void OpenDocument(const std::string& path) override { opened.push_back(path); }
    std::optional<Picture> GetPicture() override { return picture; }
    std::string GetText() override { return clipboardText; }
    void SetText(const std::string& text, const std::string& csv) override {
        clipboardText = text;
        clipboardCsv = csv;
    }
    void SetPicture(const Picture& copied) override { picture = copied; }
    void Clear() override { picture.reset(); }
    Picture PictureOf(const Chart&) override { return {"a chart", 900, 600}; }
    std::string MetafileOf(const Chart&) override { return "a metafile"; }
    std::string FileOf(const Chart&, ChartFileKind) override { return "a picture"; }
    std::vector<std::string> PrinterNames() override { return printerNames; }
    std::string CurrentPrinter() override { return printer; }
    void SetCurrentPrinter(const std::string& name) override { printer = name; }
    bool PrintsToFile() override { return printer == "File"; }
    PageOrientation Orientation() override {
        return orientations.try_emplace(printer, PageOrientation::Portrait).first->second;
    }
    void SetOrientation(PageOrientation orientation) override {
        orientations[printer] = orientation;
    }
    void SetFont(const TextFont& font) override { printFont = font; }
    void PrintText(std::string_view text) override { document += std::string(text) + '\n'; }
    void EndDocument(const std::string& title, const std::string& file) override;
    void PrintChart(const Chart& chart, const std::string& file) override;
    void ShowPrinterSetup() override;
    CalendarTime Now() override { return now; }

    // The texts of the message boxes shown since the last call.
    std::vector<std::string> TakeMessages();

    ScratchFolder folder;
    std::vector<std::string> shown;
    std::vector<Message> messages;
    std::queue<Answer> answers;                               // first what a box has a button for
    std::map<std::string, std::function<void()>> whileShown;  // by a modal form's name
    std::function<void(const Message&)> onMessage;
    std::function<void()> onYield;
    std::string announcedAtRest;
    std::vector<FileDialog> saveDialogs;
    std::optional<SaveChoice> saveChoice;
    std::vector<FileDialog> openDialogs;
    std::optional<std::string> openChoice;
    std::vector<TextQuestion> questions;
    std::function<std::string()> onQuestion;   // what is answered; none: the user cancels
    std::map<std::string, std::string> store;  // by application/section/key
    std::vector<std::string> writes;           // the keys, in order
    std::string failingStore;                  // an application's
    std::string helpFile;                      // empty: none, or closed
    std::vector<std::string> opened;
    std::optional<Picture> picture;
    std::string clipboardText;
    std::string clipboardCsv;
    std::vector<std::string> printerNames{"Laser", "Plotter", "File"};
    std::string printer = "Laser";
    std::map<std::string, PageOrientation> orientations;  // portrait where none was set
    TextFont printFont;
    std::string document;                   // what was not sent yet
    std::vector<std::string> printed;       // "printer orientation file: title or text"
    std::vector<PageOrientation> setupsAt;  // the orientation that each printer setup found
    bool printerFails = false;
    CalendarTime now{2026, 3, 9, 14, 5};
    int yields = 0;
    bool ended = false;
};

}  // namespace vardel
