#pragma once

#include "text/CalendarTime.h"

namespace vardel {

// The user's own clock.
class Clock {
public:
    virtual ~Clock() = default;
    virtual CalendarTime Now() = 0;
};

}  // namespace vardel
