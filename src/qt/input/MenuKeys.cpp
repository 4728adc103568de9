#include "qt/input/MenuKeys.h"

#include <QAction>
#include <QKeyEvent>
#include <QLineEdit>
#include <algorithm>

namespace vardel {

namespace {

bool IsOfEveryBox(const QKeyEvent& press) {
    constexpr QKeySequence::StandardKey Keys[] = {QKeySequence::Undo,  QKeySequence::Redo,
                                                  QKeySequence::Cut,   QKeySequence::Copy,
                                                  QKeySequence::Paste, QKeySequence::SelectAll};
    return std::any_of(std::begin(Keys), std::end(Keys),
                       [&press](QKeySequence::StandardKey key) { return press.matches(key); });
}

class MenuKeyFilter : public QObject {
public:
    using QObject::QObject;

protected:
    bool eventFilter(QObject* box, QEvent* event) override {
        if (event->type() != QEvent::ShortcutOverride) return false;
        const auto& press = static_cast<QKeyEvent&>(*event);
        // What is only typed asks no menu.
        if (!(press.modifiers() & Qt::ControlModifier) || IsOfEveryBox(press)) return false;
        const auto actions = static_cast<QWidget*>(box)->window()->findChildren<QAction*>();
        const QKeySequence keys(press.keyCombination());
        const bool isOfMenu =
            std::any_of(actions.begin(), actions.end(), [&keys](const QAction* action) {
                return action->isEnabled() && action->shortcut() == keys;
            });
        if (!isOfMenu) return false;
        event->ignore();
        return true;
    }
};

}  // namespace

void LeaveKeysToMenus(QLineEdit& box) { box.installEventFilter(new MenuKeyFilter(&box)); }

}  // namespace vardel
