#pragma once

#include <memory>

#include "forms/Doors.h"
#include "forms/SharedData.h"

namespace vardel {

// The program: it owns its forms and what they share, and starts and ends with the main form.
class Program : public SharedData, public Doors {
public:
    explicit Program(Platform services);
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;
    ~Program();

    // Loads and shows the main form; the program runs for as long as that is loaded.
    void Start();
    // Once the main form is up: the introduction over it, for who wants to see it.
    void Introduce();
    // The session ends or the program is asked to go: saves what an exit would that retains the
    // log, with no question asked.
    void EndSession();
    // The same where nothing can be shown any more.
    void EndWithoutDisplay();

private:
    RLogClass& TheReportLog();  // made on first use

    std::unique_ptr<RLogClass> reportLog_;
};

}  // namespace vardel
