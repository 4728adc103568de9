#pragma once

#include "qt/windows/FormWindow.h"

class QLabel;
class QLayout;

namespace vardel {

class FrmReport;
class RichTextEdit;

// FrmReport on the screen: the log below the heads of its columns, its buttons below.
class ReportWindow : public FormWindow {
public:
    explicit ReportWindow(FrmReport& form);

protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    QWidget* MakeHeads();
    void ShowHeadsUnlessSeen();
    QLayout* MakeFindBar();
    void WireKeys();
    void EnableHistory();

    FrmReport& report_;
    RichTextEdit* log_;
    QLabel* heads_ = nullptr;
};

}  // namespace vardel
