#pragma once

#include <QLabel>

namespace vardel {

// A value that was computed. Its text can be selected by the mouse. It takes the focus, in which it
// can be copied by keys, only then: a mere click on it leaves no box.
class ResultLabel : public QLabel {
public:
    explicit ResultLabel(int characters);  // wide enough for so many digits

protected:
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
};

}  // namespace vardel
