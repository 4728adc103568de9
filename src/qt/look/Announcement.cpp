#include "qt/look/Announcement.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QApplication>

namespace vardel {

namespace {

constexpr const char* Name = "announcement";

QAccessibleInterface* InterfaceOf(const QString&, QObject* object) {
    auto* announcement = dynamic_cast<Announcement*>(object);
    if (announcement == nullptr) return nullptr;
    return new QAccessibleWidget(announcement, QAccessible::Notification);  // Qt deletes it
}

}  // namespace

void Announcement::Make(const QString& text) {
    QWidget* window = QApplication::activeWindow();
    if (window == nullptr) return;
    auto* shown = window->findChild<QWidget*>(Name, Qt::FindDirectChildrenOnly);
    if (shown == nullptr) shown = new Announcement(*window);
    shown->hide();  // screen readers read it as it comes up
    shown->setAccessibleName(text);
    shown->show();
}

Announcement::Announcement(QWidget& window) : QWidget(&window) {
    [[maybe_unused]] static const bool installed = (QAccessible::installFactory(InterfaceOf), true);
    setObjectName(Name);
    setFocusPolicy(Qt::NoFocus);
    setFixedSize(0, 0);
}

}  // namespace vardel
