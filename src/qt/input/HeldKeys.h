#pragma once

#include <QKeyEvent>
#include <QObject>
#include <QTimer>
#include <functional>
#include <vector>

namespace vardel {

// Keys whose press was a command. Until its own release such a key is no input and no command
// again, though Ctrl or Shift, without which it is a character, may be let go of before it.
class HeldKeys : public QObject {
public:
    HeldKeys();

    // From this press on. The release, wherever in the program it comes, runs released.
    void Hold(const QKeyEvent& press, std::function<void()> released = {});
    // A key that is the same with and without Shift.
    void Hold(int key);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    struct Held {
        quint32 scanCode;  // the place on the keyboard; 0: not known
        int key;
        std::function<void()> released;
        quint64 releasedAt = 0;  // as the window system counts time; 0: not yet
    };
    using Iterator = std::vector<Held>::iterator;

    void Hold(Held held);
    Iterator Find(const QKeyEvent& key);
    void Release(Iterator held, quint64 time);
    void End(Iterator held);

    std::vector<Held> held_;
    QTimer settled_;
};

}  // namespace vardel
