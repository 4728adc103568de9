#pragma once

#include "text/CalendarTime.h"

namespace vardel {

class Clock {
public:
    virtual ~Clock() = default;
    virtual CalendarTime Now() = 0;
};

}  // namespace vardel
