#pragma once

#include "qt/windows/FormWindow.h"

namespace vardel {

class FrmReport;
class RichTextEdit;

// FrmReport on the screen: the log above, its buttons below.
class ReportWindow : public FormWindow {
public:
    explicit ReportWindow(FrmReport& form);

protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    RichTextEdit* log_;
};

}  // namespace vardel
