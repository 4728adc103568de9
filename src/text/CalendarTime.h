#pragma once

namespace vardel {

// A moment on the user's own clock.
struct CalendarTime {
    int year = 1970;
    int month = 1;  // 1 to 12
    int day = 1;    // 1 to 31
    int hour = 0;   // 0 to 23
    int minute = 0;
    int second = 0;
};

}  // namespace vardel
