#pragma once

#include <QWidget>

class QListWidget;
class QTextBrowser;

namespace vardel {

// The manual: its sections at the left, its text at the right.
class HelpWindow : public QWidget {
public:
    HelpWindow();

    // Topic 0 and a topic that the manual does not know show its beginning.
    void ShowTopic(int topic);

private:
    void ShowSection(int row);

    QListWidget* sections_;
    QTextBrowser* text_;
};

}  // namespace vardel
