#pragma once

#include "controls/Controls.h"

namespace vardel {

struct Doors;
struct Platform;

// How a model's loss and field strength for the main form's inputs come about, term by term.
class ExplainForm : public Form {
public:
    ExplainForm(Platform& platform, Doors& doors);

    // Takes the main form's inputs as they stand.
    void BringUpToDate();

    Label lblModel{*this, "lblModel", "Model"};
    ComboBox cmbModel;
    Label lblPath{*this, "lblPath"};
    Label lblTerms{*this, "lblTerms"};  // in columns of a fixed width
    Button cmdCopy{*this, "cmdCopy", "&Copy"};
    Button cmdClose{*this, "cmdClose", "Close"};

private:
    void Form_Load() override;

    Doors& doors_;
};

}  // namespace vardel
