#pragma once

#include <QObject>
#include <functional>

namespace vardel {

// Tells when the desktop session ends or the program is told to go by a signal (SIGTERM, SIGHUP,
// SIGINT). After a signal the event loop ends. One at a time.
class SessionEnd : public QObject {
public:
    explicit SessionEnd(std::function<void()> onEnd);
    SessionEnd(const SessionEnd&) = delete;
    SessionEnd& operator=(const SessionEnd&) = delete;
    ~SessionEnd() override;

    // A signal has come; an event loop is not to be begun any more.
    bool Signalled() const { return signalled_; }

private:
    bool signalled_ = false;
    std::function<void()> onEnd_;
};

}  // namespace vardel
