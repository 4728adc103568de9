#pragma once

#include "controls/RowList.h"

namespace vardel {

class Chart;
struct Platform;
struct SharedData;

// The chart that the shared data name as a table: a row for each kilometre, a column for each curve
// that is shown. For whoever reads rather than sees.
class ValuesForm : public Form {
public:
    ValuesForm(Platform& platform, const SharedData& shared);

    Label lblTitle{*this, "lblTitle"};
    RowList lstValues;
    Button cmdClose{*this, "cmdClose", "Close"};

private:
    RowList::Row RowAt(std::size_t index) const;

    const Chart& chart_;
};

}  // namespace vardel
