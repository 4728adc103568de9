#include "qt/input/DecimalKey.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QLocale>

namespace vardel {

namespace {

class CommaFilter : public QObject {
public:
    using QObject::QObject;

protected:
    bool eventFilter(QObject* box, QEvent* event) override {
        if (event->type() != QEvent::KeyPress) return false;
        const auto& press = static_cast<QKeyEvent&>(*event);
        const bool meansPoint =
            press.modifiers() & Qt::KeypadModifier || QLocale().decimalPoint() == ",";
        if (press.text() != "," || !meansPoint) return false;
        QKeyEvent point(QEvent::KeyPress, Qt::Key_Period, press.modifiers(), ".");
        QCoreApplication::sendEvent(box, &point);
        return true;
    }
};

}  // namespace

void TakeCommaAsPoint(QLineEdit& box) { box.installEventFilter(new CommaFilter(&box)); }

}  // namespace vardel
