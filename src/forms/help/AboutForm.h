#pragma once

#include "controls/Controls.h"

namespace vardel {

struct Platform;

// Names the program and its version.
class AboutForm : public Form {
public:
    explicit AboutForm(Platform& platform);

    Label Label1{*this, "Label1", "Okumura-Hata dB Loss / Field Strength Calulation Model"};
    Label Label3{*this, "Label3", "Created for use with Quorne"};
    Label lblVersion{*this, "lblVersion"};
    Line Line1{*this, "Line1"};
    Image Image1{*this, "Image1"};
    Button cmdOK{*this, "cmdOK", "OK"};
};

}  // namespace vardel
