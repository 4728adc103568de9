#include "platform/qt/FormWindow.h"

#include <QApplication>
#include <QCloseEvent>
#include <QMenuBar>

#include "platform/qt/Convert.h"

namespace vardel {

FormWindow::FormWindow(Form& form) : form_(&form) {
    setObjectName(ToQt(form.Name()));
    AddMenuBar();
    form.SetView([this] { ShowProperties(); });
    ShowProperties();
}

FormWindow::~FormWindow() { Release(); }

void FormWindow::Release() {
    if (form_ == nullptr) return;
    form_->SetView({});
    form_ = nullptr;
    binder.Release();
    hide();
}

void FormWindow::ShowProperties() {
    setWindowTitle(ToQt(form_->Caption()));
    setProperty("helpTopic", form_->HelpContextID());
    QPalette colors = palette();
    colors.setColor(QPalette::Window, ToQt(form_->BackColor()));
    setPalette(colors);
    if (form_->MousePointer() == Form::Pointer::Hourglass)
        setCursor(Qt::WaitCursor);
    else
        unsetCursor();
    if (!form_->Visible()) hide();
}

void FormWindow::AddMenuBar() {
    for (MenuItem* menu : form_->MenuBar()) binder.BindMenu(*menu, *menuBar());
    // The bar keeps the desktop's colours on a form that has its own.
    menuBar()->setPalette(QApplication::palette());
    menuBar()->setAutoFillBackground(true);
}

void FormWindow::closeEvent(QCloseEvent* event) {
    event->ignore();
    if (form_ != nullptr) form_->CloseByFrame();
}

void FormWindow::hideEvent(QHideEvent* event) {
    QMainWindow::hideEvent(event);
    if (onHidden_) onHidden_();
}

}  // namespace vardel
