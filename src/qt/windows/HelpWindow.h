#pragma once

#include <QWidget>

class QLineEdit;
class QListWidget;
class QTextBrowser;

namespace vardel {

// The manual: its sections at the left, its text at the right, and above a box whose text is found
// as it is typed; Enter and F3 go on to the next place.
class HelpWindow : public QWidget {
public:
    HelpWindow();

    // Topic 0 and a topic that the manual does not know show its beginning.
    void ShowTopic(int topic);

private:
    void ShowSection(int row);
    // The next place of what is searched, from the selection's begin or its end on.
    void Find(bool next);

    QLineEdit* search_;
    QListWidget* sections_;
    QTextBrowser* text_;
};

}  // namespace vardel
