#include "qt/services/QtHelp.h"

#include <QApplication>
#include <QDesktopServices>
#include <QFileInfo>
#include <QKeyEvent>
#include <QProcess>
#include <QStandardPaths>
#include <QUrl>

#include "qt/services/Convert.h"

namespace vardel {

namespace {

int TopicAtHand() {
    if (const QWidget* window = QApplication::activeWindow())
        if (const int held = window->property("heldTopic").toInt(); held != 0) return held;
    QWidget* at = QApplication::activePopupWidget();
    if (at == nullptr) at = QApplication::focusWidget();
    if (at == nullptr) at = QApplication::activeWindow();
    for (; at != nullptr; at = at->parentWidget())
        if (const int topic = at->property("helpTopic").toInt(); topic != 0) return topic;
    return 0;
}

// Whether the system names a program for the kind of file that a compiled manual is.
bool SystemHasManualViewer() {
    const QString ask = QStandardPaths::findExecutable("xdg-mime");
    if (ask.isEmpty()) return false;
    QProcess process;
    process.start(ask, {"query", "default", "application/vnd.ms-htmlhelp"});
    constexpr int LongestWait = 2000;  // ms
    return process.waitForFinished(LongestWait) && !process.readAll().trimmed().isEmpty();
}

}  // namespace

QtHelp::QtHelp() { QCoreApplication::instance()->installEventFilter(this); }

// The manual is built in, whatever lies beside the program.
void QtHelp::SetFile(const std::string&) { answersF1_ = true; }

void QtHelp::Quit() {
    answersF1_ = false;
    delete window_;
}

void QtHelp::OpenDocument(const std::string& path) {
    if (QFileInfo::exists(ToQt(path)) && SystemHasManualViewer())
        QDesktopServices::openUrl(QUrl::fromLocalFile(ToQt(path)));
    else
        ShowTopic(0);
}

void QtHelp::ShowTopic(int topic) {
    if (!window_) window_ = new HelpWindow;
    window_->ShowTopic(topic);
}

bool QtHelp::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::KeyPress || !answersF1_ || !watched->isWidgetType()) return false;
    if (static_cast<QKeyEvent*>(event)->key() != Qt::Key_F1) return false;
    const int topic = TopicAtHand();
    if (QWidget* popup = QApplication::activePopupWidget()) popup->close();
    ShowTopic(topic);
    return true;
}

}  // namespace vardel
