#include "stress/RandomUser.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QContextMenuEvent>
#include <QDialog>
#include <QDropEvent>
#include <QFileDialog>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QMimeData>
#include <QPointer>
#include <QTest>
#include <QTimer>
#include <QUrl>
#include <QWheelEvent>
#include <algorithm>

namespace vardel {

namespace {

constexpr int Keys[] = {
    Qt::Key_Tab,    Qt::Key_Backtab, Qt::Key_Return, Qt::Key_Escape, Qt::Key_Up,     Qt::Key_Down,
    Qt::Key_Left,   Qt::Key_Right,   Qt::Key_Home,   Qt::Key_Plus,   Qt::Key_F1,     Qt::Key_Delete,
    Qt::Key_Space,  Qt::Key_End,     Qt::Key_Minus,  Qt::Key_1,      Qt::Key_2,      Qt::Key_3,
    Qt::Key_PageUp, Qt::Key_F3,      Qt::Key_A,      Qt::Key_C,      Qt::Key_F,      Qt::Key_V,
    Qt::Key_X,      Qt::Key_Y,       Qt::Key_Z,      Qt::Key_T,      Qt::Key_Return, Qt::Key_Tab};

constexpr Qt::KeyboardModifiers Modifiers[] = {Qt::NoModifier, Qt::ShiftModifier,
                                               Qt::ControlModifier,
                                               Qt::ControlModifier | Qt::ShiftModifier};

constexpr const char* Texts[] = {
    "450",   "1500",  "1800.5",        "10",  "0",    "-3",  "",    "abc", "12abc", ".5",   "1e308",
    "1e-99", "99999", "50%",           "  7", "1,5",  "2",   "100", "300", "nan",   "-1e9", "0.01",
    "µ½",    "30",    "52.5 N 13.4 E", "-91", "site", "32,5"};

// Not the scroll bars and other parts of these.
bool IsControl(const QWidget& widget) {
    return qobject_cast<const QAbstractButton*>(&widget) ||
           qobject_cast<const QLineEdit*>(&widget) || qobject_cast<const QComboBox*>(&widget) ||
           qobject_cast<const QLabel*>(&widget) ||
           qobject_cast<const QAbstractItemView*>(&widget) || widget.inherits("QCustomPlot") ||
           widget.inherits("QTextEdit");
}

// Where the mouse of a widget that scrolls or draws is.
QWidget& MouseGround(QWidget& widget) {
    auto* area = qobject_cast<QAbstractScrollArea*>(&widget);
    return area != nullptr ? *area->viewport() : widget;
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
    QList<QWidget*> windows;
    for (QWidget* window : QApplication::topLevelWidgets()) {
        const bool isHelp = window->objectName() == "HelpWindow";  // which no other window blocks
        const bool isOther = modal == nullptr && qobject_cast<QMainWindow*>(window) != nullptr;
        if (window->isVisible() && (isHelp || isOther)) windows << window;
    }
    if (modal != nullptr && (windows.isEmpty() || Below(10) > 0)) windows = {modal};
    if (windows.isEmpty()) return;
    QWidget& window = *windows[Below(static_cast<int>(windows.size()))];
    const bool isDialog = qobject_cast<QDialog*>(&window) != nullptr;
    ++used_[isDialog ? QString(window.metaObject()->className()) : window.objectName()];
    if (isDialog)
        ActOnDialog(window);
    else
        ActOnWindow(window);
}

void RandomUser::ActOnPopup(QWidget& popup) {
    constexpr Qt::Key PopupKeys[] = {Qt::Key_Down, Qt::Key_Up, Qt::Key_Return, Qt::Key_Escape};
    QTest::keyClick(&popup, AnyOf(PopupKeys));
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
    if (Below(8) == 0) {
        QWidget* focus = window.focusWidget() != nullptr ? window.focusWidget() : &window;
        return QTest::keyClick(focus, static_cast<Qt::Key>(AnyOf(Keys)), AnyOf(Modifiers));
    }
    if (Below(60) == 0) {
        window.close();
        return;
    }
    if (Below(200) == 0 && window.acceptDrops()) return DropFile(window);
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
    if (Below(6) == 0) return Wheel(MouseGround(widget));
    UseMouse(MouseGround(widget));
}

// Clicks, double clicks and drags somewhere, with any of the keys held.
void RandomUser::UseMouse(QWidget& ground) {
    const QPoint from = AnyPoint(ground);
    const QPointer<QWidget> held = &ground;
    if (Below(8) == 0) return QTest::mouseDClick(&ground, Qt::LeftButton, {}, from);
    if (Below(20) == 0) {
        QContextMenuEvent asked(QContextMenuEvent::Mouse, from, ground.mapToGlobal(from));
        QApplication::sendEvent(&ground, &asked);
        return;
    }
    const Qt::KeyboardModifiers keys = Below(4) == 0 ? AnyOf(Modifiers) : Qt::NoModifier;
    const QPoint to = Below(4) == 0 ? AnyPoint(ground) : from;
    QTest::mousePress(&ground, Qt::LeftButton, keys, from);
    if (held && to != from) QTest::mouseMove(held, to);
    if (held) QTest::mouseRelease(held, Qt::LeftButton, keys, to);
}

void RandomUser::Wheel(QWidget& ground) {
    const QPoint at = AnyPoint(ground);
    QWheelEvent turn(at, ground.mapToGlobal(at), {}, {0, Below(2) == 0 ? 120 : -120}, Qt::NoButton,
                     AnyOf(Modifiers), Qt::NoScrollPhase, false);
    QApplication::sendEvent(&ground, &turn);
}

void RandomUser::DropFile(QWidget& window) {
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(AnyFile())});
    QDropEvent drop(AnyPoint(window), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&window, &drop);
}

QPoint RandomUser::AnyPoint(const QWidget& ground) {
    return {Below(std::max(1, ground.width())), Below(std::max(1, ground.height()))};
}

QString RandomUser::AnyText() { return QString::fromUtf8(AnyOf(Texts)); }

QString RandomUser::AnyFile() {
    constexpr const char* Names[] = {"a.txt", "b.rtf", "c.wmf",     "d.mdb", "missing/e.pdf", "f",
                                     "g.csv", "h.png", "i.geojson", "j.svg", "k.kml"};
    return folder_ + '/' + AnyOf(Names);
}

}  // namespace vardel
