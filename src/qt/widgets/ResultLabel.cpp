#include "qt/widgets/ResultLabel.h"

#include "qt/windows/FormWindow.h"

namespace vardel {

ResultLabel::ResultLabel(int characters) {
    setFrameStyle(QFrame::Panel | QFrame::Sunken);
    setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    setMargin(4);
    setMinimumWidth(WidthOf(*this, characters));
    setTextInteractionFlags(Qt::TextSelectableByMouse);
    setFocusPolicy(Qt::NoFocus);
}

void ResultLabel::mouseReleaseEvent(QMouseEvent* event) {
    QLabel::mouseReleaseEvent(event);
    if (hasSelectedText()) setFocus(Qt::MouseFocusReason);
}

void ResultLabel::mouseDoubleClickEvent(QMouseEvent*) {
    setSelection(0, static_cast<int>(text().size()));
    setFocus(Qt::MouseFocusReason);
}

}  // namespace vardel
