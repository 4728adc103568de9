#pragma once

#include <QApplication>
#include <QFileDialog>
#include <QTimer>
#include <map>
#include <memory>

#include "qt/printing/QtPrinters.h"
#include "qt/services/QtHelp.h"
#include "qt/services/QtSettings.h"
#include "qt/windows/DialogOver.h"
#include "qt/windows/FormWindow.h"
#include "services/Platform.h"

namespace vardel {

// Name, version, look and fonts, the same on every desktop.
void SetUpApplication(QApplication& application);

// The window system, the clipboard and the clock as Qt brings them.
class QtPlatform : public Windows, public Clipboard, public ChartDrawing, public Clock {
public:
    QtPlatform();
    ~QtPlatform() override;

    Platform Services();
    // The window that shows the form, made when it is first asked for.
    FormWindow& WindowOf(Form& form);
    // No window shows anything of its form any more: with its display, the toolkit has lost what
    // that needs.
    void LetGoOfForms();

    void Show(Form& form) override;
    void ShowModal(Form& form, Form* owner) override;
    void Forget(std::unique_ptr<Form> form) override;
    Answer ShowMessage(const Message& message) override;
    std::optional<SaveChoice> AskSaveFile(const FileDialog& request) override;
    std::optional<std::string> AskOpenFile(const FileDialog& request) override;
    std::optional<std::string> AskFolder() override;
    std::string AskText(const TextQuestion& question) override;
    void Yield() override;
    void YieldWithoutInput() override;
    void EndProgram() override;
    bool IsEnding() const override { return ending_; }
    void Announce(const std::string& text) override;
    void AnnounceAtRest(const std::string& text) override;
    std::optional<Picture> GetPicture() override;
    std::string GetText() override;
    void SetPicture(const Picture& picture) override;
    void SetText(const std::string& text, const std::string& csv) override;
    void Clear() override;
    Picture PictureOf(const Chart& chart) override;
    std::string MetafileOf(const Chart& chart) override;
    std::string FileOf(const Chart& chart, ChartFileKind kind) override;
    CalendarTime Now() override;

    QtHelp& GetHelp() { return help_; }
    QtPrinters& GetPrinters() { return printers_; }

private:
    // Of the last choice in a file dialog; kept from start to start.
    QString LastFolder();
    // Nothing where the dialog was closed without a file.
    std::optional<std::string> AskedOf(DialogOver<QFileDialog>& dialog);

    bool ending_ = false;
    QTimer rest_;          // of what is announced once nothing more comes
    std::string resting_;  // what that is
    QtSettings settings_;
    QtHelp help_;
    QtPrinters printers_;
    // An event of a window may still be on the stack when its form goes.
    struct DeleteLater {
        void operator()(FormWindow* window) const { window->deleteLater(); }
    };
    std::map<Form*, std::unique_ptr<FormWindow, DeleteLater>> windows_;
};

}  // namespace vardel
