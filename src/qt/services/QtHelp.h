#pragma once

#include <QObject>
#include <QPointer>

#include "qt/windows/HelpWindow.h"
#include "services/Platform.h"

namespace vardel {

// F1 anywhere in the program opens the manual at the topic of the control that has the focus or of
// the menu that is open, else at that of what contains it; while something without focus is held
// down, at that of this.
class QtHelp : public QObject, public Help {
public:
    QtHelp();
    ~QtHelp() override { delete window_; }

    void SetFile(const std::string& path) override;
    void Quit() override;
    void OpenDocument(const std::string& path) override;

    void ShowTopic(int topic);
    // Null while it is closed.
    QWidget* Window() const { return window_; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool answersF1_ = false;
    QPointer<HelpWindow> window_;
};

}  // namespace vardel
