#include "qt/windows/Announcement.h"

#include <QApplication>
#include <QEvent>
#include <QWidget>

namespace vardel {

void Announcement::Make(const QString& text) {
    QWidget* focus = QApplication::focusWidget();
    if (focus == nullptr) return;
    auto* announcement = dynamic_cast<Announcement*>(focus->findChild<QObject*>("announcement"));
    if (announcement == nullptr) announcement = new Announcement(*focus);
    announcement->text_ = text;
    focus->setAccessibleDescription(text);
}

Announcement::Announcement(QWidget& focus)
    : QObject(&focus), focus_(focus), before_(focus.accessibleDescription()) {
    setObjectName("announcement");
    focus.installEventFilter(this);
}

bool Announcement::eventFilter(QObject*, QEvent* event) {
    if (event->type() != QEvent::FocusOut) return false;
    // It may have got another meanwhile.
    if (focus_.accessibleDescription() == text_) focus_.setAccessibleDescription(before_);
    deleteLater();
    setObjectName({});
    return false;
}

}  // namespace vardel
