#include "stress/RandomUser.h"

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QFileDialog>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QPointer>
#include <QTest>
#include <QTimer>

namespace vardel {

namespace {

constexpr int Keys[] = {Qt::Key_Tab,  Qt::Key_Backtab, Qt::Key_Return, Qt::Key_Escape, Qt::Key_Up,
                        Qt::Key_Down, Qt::Key_Left,    Qt::Key_Right,  Qt::Key_Home,   Qt::Key_Plus,
                        Qt::Key_F1,   Qt::Key_Delete,  Qt::Key_Space};

constexpr const char* Texts[] = {"450",   "1500", "1800.5", "10",    "0",     "-3",   "",    "abc",
                                 "12abc", ".5",   "1e308",  "1e-99", "99999", "50%",  "  7", "1,5",
                                 "2",     "100",  "300",    "nan",   "-1e9",  "0.01", "µ½",  "30"};

// Not the scroll bars and other parts of these.
bool IsControl(const QWidget& widget) {
    return qobject_cast<const QAbstractButton*>(&widget) ||
           qobject_cast<const QLineEdit*>(&widget) || qobject_cast<const QComboBox*>(&widget) ||
           qobject_cast<const QLabel*>(&widget) || widget.inherits("QCustomPlot") ||
           widget.inherits("QTextEdit");
}

void AddEntries(const QList<QAction*>& actions, QList<QAction*>& entries) {
    for (QAction* action : actions) {
        if (action->menu() != nullptr)
            AddEntries(action->menu()->actions(), entries);
        else if (action->isEnabled() && action->isVisible() && !action->isSeparator())
            entries << action;
    }
}

}  // namespace

RandomUser::RandomUser(unsigned seed, int actions, QString folder)
    : random_(seed), actionsLeft_(actions), folder_(std::move(folder)) {}

void RandomUser::Use() {
    ScheduleStep();
    QApplication::exec();
}

// A timer of its own for each step: one whose routine still waits would not come again. With no
// time at all between the steps no event loop would ever come to its end.
void RandomUser::ScheduleStep() {
    QTimer::singleShot(1, this, [this] { Step(); });
}

void RandomUser::Step() {
    ScheduleStep();
    if (actionsLeft_ <= 0) return CloseEverything();
    --actionsLeft_;
    if (depth_ == 0) CheckIdle();
    ++depth_;
    Act();
    --depth_;
}

void RandomUser::CloseEverything() {
    if (QWidget* popup = QApplication::activePopupWidget())
        popup->close();
    else if (auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget()))
        dialog->reject();
    else if (QWidget* modal = QApplication::activeModalWidget())
        modal->close();
    else if (depth_ == 0)
        QApplication::quit();
}

void RandomUser::CheckIdle() {
    for (const QWidget* window : QApplication::topLevelWidgets())
        if (window->isVisible() && window->cursor().shape() == Qt::WaitCursor)
            faults_ << "The hourglass stays on " + window->windowTitle();
}

void RandomUser::Act() {
    if (QWidget* popup = QApplication::activePopupWidget()) return ActOnPopup(*popup);
    QWidget* modal = QApplication::activeModalWidget();
    if (qobject_cast<QDialog*>(modal) != nullptr) return ActOnDialog(*modal);
    if (modal != nullptr) return ActOnWindow(*modal);
    QList<QWidget*> windows;
    for (QWidget* window : QApplication::topLevelWidgets())
        if (window->isVisible() && qobject_cast<QMainWindow*>(window) != nullptr) windows << window;
    if (!windows.isEmpty()) ActOnWindow(*windows[Below(static_cast<int>(windows.size()))]);
}

void RandomUser::ActOnPopup(QWidget& popup) {
    constexpr int PopupKeys[] = {Qt::Key_Down, Qt::Key_Up, Qt::Key_Return, Qt::Key_Escape};
    QTest::keyClick(&popup, static_cast<Qt::Key>(PopupKeys[Below(4)]));
}

void RandomUser::ActOnDialog(QWidget& dialog) {
    if (auto* message = qobject_cast<QMessageBox*>(&dialog)) {
        if (message->text().trimmed().isEmpty()) faults_ << "A message without a text";
        const auto buttons = message->buttons();
        return QTest::mouseClick(buttons[Below(static_cast<int>(buttons.size()))], Qt::LeftButton);
    }
    auto& asked = static_cast<QDialog&>(dialog);
    if (Below(3) == 0) return asked.reject();
    if (auto* input = qobject_cast<QInputDialog*>(&dialog)) input->setTextValue(AnyText());
    if (auto* name = dialog.findChild<QLineEdit*>("fileNameEdit")) name->setText(AnyFile());
    if (qobject_cast<QFileDialog*>(&dialog) == nullptr &&
        qobject_cast<QInputDialog*>(&dialog) == nullptr)
        return asked.reject();
    QTest::keyClick(&dialog, Qt::Key_Return);
}

void RandomUser::ActOnWindow(QWidget& window) {
    if (Below(6) == 0) return PickFromMenus(window);
    if (Below(12) == 0) {
        QWidget* focus = window.focusWidget() != nullptr ? window.focusWidget() : &window;
        return QTest::keyClick(focus, static_cast<Qt::Key>(Keys[Below(std::size(Keys))]));
    }
    if (Below(60) == 0) {
        window.close();
        return;
    }
    QList<QWidget*> controls;
    for (QWidget* widget : window.findChildren<QWidget*>())
        if (widget->isVisible() && widget->isEnabled() && IsControl(*widget)) controls << widget;
    if (!controls.isEmpty()) UseWidget(*controls[Below(static_cast<int>(controls.size()))]);
}

void RandomUser::PickFromMenus(QWidget& window) {
    auto* main = qobject_cast<QMainWindow*>(&window);
    if (main == nullptr || main->menuBar() == nullptr) return;
    QList<QAction*> entries;
    AddEntries(main->menuBar()->actions(), entries);
    if (!entries.isEmpty()) entries[Below(static_cast<int>(entries.size()))]->trigger();
}

void RandomUser::UseWidget(QWidget& widget) {
    if (auto* edit = qobject_cast<QLineEdit*>(&widget)) {
        QPointer<QLineEdit> box = edit;
        QTest::mouseClick(edit, Qt::LeftButton);
        if (!box || !box->isVisible()) return;
        box->selectAll();
        const QString text = AnyText();
        QTest::keyClicks(box, text.isEmpty() ? QString("1") : text);
        return;
    }
    if (auto* list = qobject_cast<QComboBox*>(&widget)) {
        list->setFocus();
        return QTest::keyClick(list, Below(2) == 0 ? Qt::Key_Down : Qt::Key_Up);
    }
    QPointer<QWidget> held = &widget;
    if (Below(8) == 0) {
        QTest::mouseDClick(&widget, Qt::LeftButton);
        return;
    }
    QTest::mousePress(&widget, Qt::LeftButton);
    if (held) QTest::mouseRelease(held, Qt::LeftButton);
}

QString RandomUser::AnyText() {
    return QString::fromUtf8(Texts[Below(static_cast<int>(std::size(Texts)))]);
}

QString RandomUser::AnyFile() {
    constexpr const char* Names[] = {"a.txt", "b.rtf", "c.wmf", "d.mdb", "missing/e.pdf", "f"};
    return folder_ + '/' + Names[Below(static_cast<int>(std::size(Names)))];
}

}  // namespace vardel
