#include "platform/qt/WindowFactory.h"

#include <stdexcept>

#include "platform/qt/MainWindow.h"
#include "workbench/MainForm.h"

namespace vardel {

std::unique_ptr<FormWindow> MakeWindow(Form& form) {
    if (auto* mainForm = dynamic_cast<MainForm*>(&form))
        return std::make_unique<MainWindow>(*mainForm);
    throw std::logic_error("No window for the form " + form.Name());
}

}  // namespace vardel
