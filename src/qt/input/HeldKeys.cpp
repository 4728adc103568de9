#include "qt/input/HeldKeys.h"

#include <QCoreApplication>
#include <algorithm>
#include <utility>

namespace vardel {

namespace {

// X11 sends a release and a press at the same time for each repeat of a held key, and Qt takes the
// two for what they are only where it finds both waiting.
bool IsRepeat(const QKeyEvent& press, quint64 releasedAt) {
    return press.isAutoRepeat() || (releasedAt != 0 && press.timestamp() == releasedAt);
}

}  // namespace

HeldKeys::HeldKeys() {
    constexpr int LongestWait = 50;  // ms, for the press that makes a release that of a repeat
    settled_.setSingleShot(true);
    settled_.setInterval(LongestWait);
    connect(&settled_, &QTimer::timeout, this, [this] {
        std::vector<std::function<void()>> routines;
        for (Held& held : held_)
            if (held.releasedAt != 0 && held.released)
                routines.push_back(std::exchange(held.released, {}));
        for (const auto& released : routines) released();
    });
}

void HeldKeys::Hold(const QKeyEvent& press, std::function<void()> released) {
    Hold(Held{press.nativeScanCode(), press.key(), std::move(released)});
}

void HeldKeys::Hold(int key) { Hold(Held{0, key, {}}); }

void HeldKeys::Hold(Held held) {
    held_.push_back(std::move(held));
    QCoreApplication::instance()->installEventFilter(this);
}

bool HeldKeys::eventFilter(QObject*, QEvent* event) {
    const auto type = event->type();
    if (type != QEvent::KeyPress && type != QEvent::KeyRelease && type != QEvent::ShortcutOverride)
        return false;
    auto& key = *static_cast<QKeyEvent*>(event);
    const auto held = Find(key);
    if (held == held_.end()) return false;
    if (type == QEvent::KeyRelease) {
        if (!key.isAutoRepeat()) Release(held, key.timestamp());
        return key.isAutoRepeat();
    }
    if (IsRepeat(key, held->releasedAt)) {
        key.accept();  // which keeps it from the shortcuts
        if (type == QEvent::KeyPress) held->releasedAt = 0;
        return true;
    }
    // A stroke of its own; if the release before it came, then to another program.
    if (type == QEvent::KeyPress) End(held);
    return false;
}

HeldKeys::Iterator HeldKeys::Find(const QKeyEvent& key) {
    return std::find_if(held_.begin(), held_.end(), [&key](const Held& held) {
        const bool placesKnown = held.scanCode != 0 && key.nativeScanCode() != 0;
        return placesKnown ? held.scanCode == key.nativeScanCode() : held.key == key.key();
    });
}

void HeldKeys::Release(Iterator held, quint64 time) {
    if (time == 0) return End(held);
    held->releasedAt = time;
    settled_.start();
}

void HeldKeys::End(Iterator held) {
    const auto released = std::move(held->released);
    held_.erase(held);
    if (held_.empty()) QCoreApplication::instance()->removeEventFilter(this);
    if (released) released();
}

}  // namespace vardel
