#include "forms/shared/Printing.h"

#include <exception>

#include "controls/Form.h"
#include "controls/Hourglass.h"
#include "forms/shared/SaveWithDialog.h"
#include "services/Platform.h"

namespace vardel {

namespace {

std::string FileNameOf(std::string title) {
    for (char& c : title)
        if (std::string_view("/\\:").find(c) != std::string_view::npos) c = '-';
    return title + ".pdf";
}

void TellFailure(Form& form, std::string text) {
    form.GetPlatform().windows.ShowMessage(
        {.text = std::move(text), .title = "Print", .icon = Message::Icon::Critical});
}

}  // namespace

void PrintOnCurrentPrinter(Form& form, const std::string& title,
                           const std::function<void(const std::string& file)>& print) {
    Printers& printers = form.GetPlatform().printers;
    const std::string printer = printers.CurrentPrinter();
    if (printer.empty())
        return TellFailure(form, "There is no printer to print on. Choose one by Printer Setup.");
    if (printers.PrintsToFile()) {
        SaveWithDialog(
            form, "PDF Files (*.pdf)|*.pdf", 1,
            [&print](const SaveChoice& choice) { print(choice.path); }, FileNameOf(title));
        return;
    }
    std::string failure;
    try {
        const Hourglass hourglass(form);
        print({});
    } catch (const std::exception& error) {
        failure = "Error in printing on " + printer + ": " + error.what();
    }
    if (!failure.empty()) TellFailure(form, failure);
}

}  // namespace vardel
