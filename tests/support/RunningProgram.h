#pragma once

#include "platform/RichTextBox.h"
#include "reports/FrmReport.h"
#include "reports/RLogClass.h"
#include "support/FakePlatform.h"
#include "workbench/MainForm.h"
#include "workbench/Program.h"

namespace vardel {

// A program that has started, with no window system and a folder of its own.
struct RunningProgram {
    RunningProgram() {
        program.Start();
        platform.messages.clear();  // there is no measured data
        platform.yields = 0;
    }

    MainForm& Main() { return *program.MainForm; }
    RichTextBox& Log() { return program.FrmReport->rtbLog; }
    // The last line of the log, without its line end.
    std::string LastLine() {
        const std::string& text = Log().Text();
        const std::size_t end = text.size() - 2;
        return text.substr(text.rfind('\n', end - 1) + 1, end - text.rfind('\n', end - 1) - 1);
    }

    FakePlatform platform;
    Program program{platform.Services()};
};

}  // namespace vardel
