#pragma once

#include <QObject>
#include <functional>

namespace vardel {

// Calls back when the desktop session ends or a signal asks the program to go (SIGTERM, SIGHUP,
// SIGINT), when a second function is to end the event loop; and when the program dies by exit while
// this lives, as the window system ends it that has lost its display. One at a time.
class SessionEnd : public QObject {
public:
    SessionEnd(std::function<void()> onEnd, std::function<void()> onSignal,
               std::function<void()> onDeath);
    SessionEnd(const SessionEnd&) = delete;
    SessionEnd& operator=(const SessionEnd&) = delete;
    ~SessionEnd() override;

    // A signal has come; an event loop is not to be begun any more.
    bool Signalled() const { return signalled_; }

private:
    static void OnExit();

    bool signalled_ = false;
    std::function<void()> onEnd_;
    std::function<void()> onSignal_;
    std::function<void()> onDeath_;
};

}  // namespace vardel
