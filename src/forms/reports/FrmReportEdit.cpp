// The Edit menu: searches, and what is made of the log's lines.

#include <algorithm>

#include "engine/LogReader.h"
#include "forms/Doors.h"
#include "forms/main/MainForm.h"
#include "forms/reports/FrmReport.h"
#include "forms/reports/LogCsv.h"
#include "forms/shared/SaveWithDialog.h"
#include "services/Files.h"
#include "text/AsciiCase.h"
#include "text/NumberText.h"

namespace vardel {

namespace {

// Where the words begin, or npos.
std::size_t FirstFrom(std::string_view text, std::string_view words, std::size_t from) {
    const auto found = std::search(text.begin() + static_cast<std::ptrdiff_t>(from), text.end(),
                                   words.begin(), words.end(), SameLetter);
    return found == text.end() ? std::string_view::npos
                               : static_cast<std::size_t>(found - text.begin());
}

// Wholly before that position.
std::size_t LastBefore(std::string_view text, std::string_view words, std::size_t end) {
    const std::string_view part = text.substr(0, end);
    const auto found =
        std::find_end(part.begin(), part.end(), words.begin(), words.end(), SameLetter);
    return found == part.end() ? std::string_view::npos
                               : static_cast<std::size_t>(found - part.begin());
}

}  // namespace

void FrmReport::WireEditMenu() {
    mnuEditUndo.SetShortcut("Ctrl+Z");
    mnuEditUndo.Click = [this] { rtbLog.Undo(); };
    mnuEditRedo.SetShortcut("Ctrl+Shift+Z");
    mnuEditRedo.Click = [this] { rtbLog.Redo(); };
    mnuEditFind.SetShortcut("Ctrl+F");
    mnuEditFind.Click = [this] { ShowFind(true); };
    mnuEditFindNext.SetShortcut("F3");
    mnuEditFindNext.Click = [this] { Find(Search::Next); };
    mnuEditFindPrevious.SetShortcut("Shift+F3");
    mnuEditFindPrevious.Click = [this] { Find(Search::Previous); };
    mnuEditTake.SetShortcut("Ctrl+T");
    mnuEditTake.Click = [this] { mnuEditTake_Click(); };
    mnuEditSaveCsv.Click = [this] { mnuEditSaveCsv_Click(); };
    txtFind.Change = [this] { Find(Search::FromHere); };
    cmdFindNext.Click = [this] { Find(Search::Next); };
    cmdFindPrevious.Click = [this] { Find(Search::Previous); };
}

void FrmReport::ShowFind(bool show) {
    for (Control* control :
         {static_cast<Control*>(&lblFind), static_cast<Control*>(&txtFind),
          static_cast<Control*>(&cmdFindNext), static_cast<Control*>(&cmdFindPrevious)})
        control->SetVisible(show);
    lblStatus.SetCaption({});
}

// Round the log, from what is selected.
void FrmReport::Find(Search search) {
    const std::string& words = txtFind.Text();
    lblStatus.SetCaption({});
    if (words.empty()) return ShowFind(true);
    const auto [start, length] = rtbLog.Selected();
    const std::string_view text = rtbLog.Text();
    std::size_t found = 0;
    if (search == Search::Previous) {
        found = LastBefore(text, words, start);
        if (found == std::string_view::npos) found = LastBefore(text, words, text.size());
    } else {
        found = FirstFrom(text, words, search == Search::Next ? start + length : start);
        if (found == std::string_view::npos) found = FirstFrom(text, words, 0);
    }
    if (found == std::string_view::npos)
        lblStatus.SetCaption("The log does not hold \"" + words + "\".");
    else
        rtbLog.Select({found, words.size()});
}

std::string_view FrmReport::LineAtCaret() {
    const std::size_t caret = rtbLog.Selected().start;
    const std::string_view text = rtbLog.Text();
    const std::size_t before = caret == 0 ? std::string_view::npos : text.rfind("\r\n", caret - 1);
    const std::size_t begin = before == std::string_view::npos ? 0 : before + 2;
    return text.substr(begin, std::min(text.find("\r\n", begin), text.size()) - begin);
}

// Never silently: the log rounds its numbers.
void FrmReport::mnuEditTake_Click() {
    constexpr double SameLine = 0.0051;  // dB: a result is rounded to 0.01
    constexpr double NoLine = 1.0;       // dB: then a distance may as well be in the other unit
    const auto line = ReadLogLine(LineAtCaret());
    if (!line)
        return lblStatus.SetCaption(
            "The caret is not on the line of a calculation; no inputs were taken.");
    const auto [path, off] = InputsOfLine(*line);
    const bool english = path.units == Units::English;
    const bool otherUnits = english != doors_.MainForm->mnuUnitsEnglish.Checked();
    const bool distance = !english || off < NoLine;
    doors_.MainForm->TakeInputs(
        path, distance ? MainForm::Take::PowerAndDistance : MainForm::Take::Power);

    std::string told = "The main window has the line's inputs";
    if (!distance) told += ", but for the distance, which may be in miles or km";
    if (otherUnits)
        told += english ? ", converted from miles and feet" : ", converted from km and metres";
    told +=
        ". The log rounds: distance and heights to 0.01, frequency to 0.1 MHz, percentages to 1, "
        "power to 0.1 W.";
    if (off < SameLine)
        told += " They give the results of the line.";
    else
        told += " They give other results than the line's, by up to " + FormatNumber(off, "0.00") +
                " dB.";
    lblStatus.SetCaption(told);
}

void FrmReport::mnuEditSaveCsv_Click() {
    const std::string csv = LogCsv(rtbLog.Content());
    SaveWithDialog(
        *this, "CSV Files (*.csv)|*.csv", 1,
        [&csv](const SaveChoice& choice) { ReplaceFile(choice.path, csv); }, "Calculation Log.csv");
}

}  // namespace vardel
