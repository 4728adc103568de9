#pragma once

#include "forms/Program.h"
#include "forms/main/MainForm.h"
#include "forms/reports/FrmReport.h"
#include "forms/reports/RLogClass.h"
#include "richtext/RichTextBox.h"
#include "support/FakePlatform.h"

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
