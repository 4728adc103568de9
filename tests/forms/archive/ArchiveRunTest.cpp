#include <gmock/gmock.h>

#include <cstdlib>
#include <filesystem>
#include <regex>
#include <sstream>

#include "forms/graphs/FrmOkumFieldStrength.h"
#include "forms/graphs/GraphForm.h"
#include "forms/help/UserGuide.h"
#include "models/ModCalculations.h"
#include "services/Files.h"
#include "support/RunningProgram.h"
#include "support/Shell.h"
#include "text/NumberText.h"

namespace vardel {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

using Model = double (*)(const ModelInputs&) noexcept;

class ArchiveRunTest : public testing::Test, public RunningProgram {
protected:
    ArchiveRunTest() {
        std::filesystem::copy_file(EMPTY_ARCHIVE, archive);
        platform.openChoice = archive;
        platform.onQuestion = [] { return "a comment, größer"; };
        platform.now.second = 7;
        Main().cmdLossCalc.Press();
    }

    std::istringstream Dump() {
        return std::istringstream(Output("python3 " DUMP_ARCHIVE " \"" + archive + '"'));
    }
    static std::string Line(std::istream& dump) {
        std::string line;
        std::getline(dump, line);
        return line;
    }
    // Reads a curve's points, each of which must be the model's value.
    static void ExpectCurve(std::istream& dump, const std::string& head, Model model,
                            ModelInputs inputs, double to) {
        EXPECT_EQ(Line(dump), head);
        inputs.d = 1.0;
        for (; inputs.d <= to; inputs.d = inputs.d + 0.1) {
            ASSERT_EQ(std::strtod(Line(dump).c_str(), nullptr), inputs.d);
            ASSERT_EQ(std::strtod(Line(dump).c_str(), nullptr), model(inputs)) << inputs.d;
        }
    }

    std::string archive = platform.folder.Path("it's runs.mdb");
};

TEST_F(ArchiveRunTest, AnotherReaderFindsEveryFieldAndPoint) {
    GraphForm& loss = *program.GraphForm;
    EXPECT_FALSE(loss.cmdArchiveData.Visible());
    loss.lblBaseAntenna.Click.Raise();
    EXPECT_TRUE(loss.cmdArchiveData.Visible());
    loss.mnuGraph300.Pick();
    loss.cmdArchiveData.Press();

    Main().mnuUnitsEnglish.Pick();
    FrmOkumFieldStrength& field = *program.FrmOkumFieldStrength;
    EXPECT_FALSE(field.cmdAddToArchive.Visible());
    field.lblPower.Click.Raise();
    field.SelectPlot(FieldStrengthGraph::Cost231);
    field.cmbareatype.SetText("Suburban");
    field.txtPctTime.SetText("10");
    platform.onQuestion = nullptr;  // the user cancels
    field.cmdAddToArchive.Press();

    EXPECT_THAT(platform.TakeMessages(), IsEmpty());
    EXPECT_EQ(field.MousePointer(), Form::Pointer::Normal);
    ASSERT_EQ(platform.openDialogs.size(), 1U) << "the first choice is kept";
    EXPECT_EQ(platform.openDialogs[0].folder, platform.folder.Path());
    EXPECT_EQ(platform.openDialogs[0].filters, "*.mdb");
    EXPECT_EQ(platform.questions[1].prompt, "Comments:");
    EXPECT_EQ(platform.questions[1].title, "Store Data Run");
    EXPECT_EQ(platform.questions[1].text, " ");

    std::istringstream dump = Dump();
    EXPECT_EQ(
        Line(dump),
        "run|1|'Okumura-Hata'|'hb:100.0,hm:1.5,frq:450.0,Urban,,Small/Medium,Power:1.kW e.r.p."
        ",50%T,50%L'|'a comment, größer'|'2026-03-09 14:05:07'|2");
    EXPECT_EQ(Line(dump),
              "run|2|'Okumura-Hata'|'hb:328.084,hm:4.9213,frq:450.0,Suburban,,Power:1.kW e.r.p."
              ",10%T,50%L'|''|'2026-03-09 14:05:07'|2");
    const ModelInputs urban{450, 0, 100, 1.5, "Urban", "Small/Medium", 50, 50};
    const std::pair<const char*, Model> losses[] = {
        {"ITU 529", Itu529Loss}, {"Davidson", DavidsonLoss}, {"Cost 231", Cost231Loss}};
    for (const auto& [name, model] : losses)
        ExpectCurve(dump, std::string("curve|1|") + name + " Urban|a comment, größer|2991|47857|0",
                    model, urban, 300);
    const ModelInputs suburban{
        450, 0, 328.084 * 0.3048, 4.9213 * 0.3048, "Suburban", "Small/Medium", 10, 50};
    const std::pair<const char*, Model> fields[] = {{"ITU 529", Itu529FieldStrength},
                                                    {"Davidson", DavidsonFieldStrength},
                                                    {"Cost 231", Cost231FieldStrength}};
    for (const auto& [name, model] : fields)
        ExpectCurve(dump, std::string("curve|2|") + name + " - Suburban||991|15857|0", model,
                    suburban, 100);
    EXPECT_EQ(Line(dump), "");
}

// Computed by hand, where the models differ.
TEST_F(ArchiveRunTest, EachCurveIsThatOfItsLegend) {
    const auto archived = [](PlotForm& form, Button& button) {
        form.txtFreq.SetText("900");
        form.txthb.SetText("250");
        button.Press();
    };
    program.GraphForm->lblBaseAntenna.Click.Raise();
    archived(*program.GraphForm, program.GraphForm->cmdArchiveData);
    program.FrmOkumFieldStrength->lblPower.Click.Raise();
    archived(*program.FrmOkumFieldStrength, program.FrmOkumFieldStrength->cmdAddToArchive);
    std::istringstream dump = Dump();
    std::vector<std::string> at60Km;
    for (std::string line, legend; std::getline(dump, line);) {
        if (line.starts_with("curve|")) legend = line.substr(8, line.rfind(" Urban|") - 8);
        if (std::abs(std::strtod(line.c_str(), nullptr) - 60.0) < 1e-6)
            at60Km.push_back(legend + ' ' +
                             FormatNumber(std::strtod(Line(dump).c_str(), nullptr), "0.000"));
    }
    EXPECT_THAT(at60Km, ElementsAre("ITU 529 175.159", "Davidson 178.687", "Cost 231 174.775",
                                    "ITU 529 - 23.296", "Davidson - 19.758", "Cost 231 - 23.670"));
}

TEST_F(ArchiveRunTest, WithoutAnArchiveOrANumberNothingIsStored) {
    GraphForm& form = *program.GraphForm;
    form.lblBaseAntenna.Click.Raise();
    for (const auto& choice : {std::optional<std::string>(), std::optional<std::string>("*.mdb")}) {
        platform.openChoice = choice;
        form.cmdArchiveData.Press();
        ASSERT_EQ(platform.messages.size(), 1U);
        EXPECT_EQ(platform.messages[0].title, "Add To Archive");
        EXPECT_THAT(platform.TakeMessages(), ElementsAre("Cannot Open Access Database"));
        EXPECT_EQ(form.MousePointer(), Form::Pointer::Normal);
    }
    EXPECT_EQ(platform.openDialogs.size(), 2U);
    EXPECT_EQ(platform.openDialogs[0].name + platform.openDialogs[0].filters, "*.mdb*.mdb");
    form.txtFreq.SetText("much");
    form.cmdArchiveData.Press();
    EXPECT_THAT(platform.TakeMessages(), ElementsAre("Frequency must be a number, not \"much\""));
    EXPECT_EQ(form.MousePointer(), Form::Pointer::Normal);
    EXPECT_THAT(platform.questions, IsEmpty());
    form.txtFreq.SetText("450");
    platform.openChoice = archive;
    platform.onQuestion = [this] { return program.EndSession(), std::string(); };
    form.cmdArchiveData.Press();
    EXPECT_EQ(platform.questions.size(), 1U) << "which the end of the session answers";
    std::istringstream dump = Dump();
    EXPECT_EQ(Line(dump), "");
}

TEST_F(ArchiveRunTest, AFileNameThatDoesNotExistMakesAnArchiveAfterAQuestion) {
    program.GraphForm->lblBaseAntenna.Click.Raise();
    platform.openChoice = platform.folder.Path("missing/new.mdb");
    program.GraphForm->cmdArchiveData.Press();
    EXPECT_THAT(platform.TakeMessages().at(1), HasSubstr("new.mdb cannot be made: No such file"));
    platform.openChoice = platform.folder.Path("new");
    archive = platform.folder.Path("new.mdb");
    platform.answers.push(Answer::No);
    program.GraphForm->cmdArchiveData.Press();
    EXPECT_FALSE(FileExists(archive));
    const auto messages = platform.TakeMessages();
    EXPECT_EQ(messages.at(0), "The archive " + archive + " does not exist. Make it?");
    EXPECT_EQ(messages.size(), 7U) << "and each step of the run tells that it has no archive";
    EXPECT_EQ(platform.questions.size(), 1U) << "the comment is asked for all the same";
    EXPECT_EQ(program.ArchiveFile, archive);
    program.ArchiveFile.clear();
    program.GraphForm->cmdArchiveData.Press();
    EXPECT_THAT(platform.TakeMessages(),
                ElementsAre("The archive " + archive + " does not exist. Make it?"));
    std::istringstream dump = Dump();
    EXPECT_THAT(Line(dump), HasSubstr("run|1|"));
    EXPECT_TRUE(program.dbOperations.ArchiveDatabase.has_value()) << "open until the next run";
    EXPECT_EQ(program.dbOperations.ArchivePath, archive);
    EXPECT_EQ(program.dbOperations.CurrentRunId, 1);
    program.ArchiveFile = platform.folder.Path("gone.mdb");
    program.GraphForm->cmdArchiveData.Press();
    EXPECT_EQ(program.dbOperations.CurrentRunId, 1) << "as a failed opening leaves it";
    EXPECT_EQ(platform.TakeMessages().size(), 6U);
}

// The text between the fences of the guide's blocks in a language, in their order.
std::vector<std::string> GuideBlocks(const std::string& language) {
    const std::string guide = GuideMarkdown();
    const std::regex block("```" + language + "\n([^`]*)```");
    std::vector<std::string> blocks;
    for (std::sregex_iterator it(guide.begin(), guide.end(), block), end; it != end; ++it)
        blocks.push_back((*it)[1]);
    return blocks;
}

TEST_F(ArchiveRunTest, TheGuidesExamplesWork) {
    const auto shell = GuideBlocks("sh");
    const auto python = GuideBlocks("python");
    ASSERT_EQ(shell.size(), 3U);
    ASSERT_EQ(python.size(), 1U);
    const std::string inFolder = "cd '" + platform.folder.Path() + "' && ";
    std::filesystem::copy_file(EMPTY_ARCHIVE, platform.folder.Path("New Model Data.mdb"));
    const std::string installed = "/usr/lib/vardel/";
    ASSERT_EQ(shell[0].find(installed), 4U);
    Output(inFolder + std::string(shell[0]).erase(4, installed.size()));
    platform.openChoice = platform.folder.Path("runs.mdb");
    program.GraphForm->lblBaseAntenna.Click.Raise();
    program.GraphForm->cmdArchiveData.Press();
    EXPECT_THAT(platform.TakeMessages(), IsEmpty());

    EXPECT_THAT(Output(inFolder + shell[1]),
                HasSubstr("1|2026-03-09 14:05:07|a comment, größer|Davidson Urban|991"));
    ReplaceFile(platform.folder.Path("read.py"), python[0]);
    EXPECT_THAT(Output(inFolder + "python3 read.py"),
                testing::AllOf(HasSubstr("1 ITU 529 Urban: 143.13 dB at 10.0 km\n"),
                               HasSubstr("1 Cost 231 Urban: 140.42 dB at 10.0 km\n")));
    EXPECT_EQ(Output(inFolder + shell[2]), "") << "no incomplete run";
    Output(inFolder +
           "sqlite3 runs.mdb \"INSERT INTO DataSets VALUES(7, '', '', 0, NULL);"
           " INSERT INTO ModelRun VALUES(8, '', '', '', '', 2)\"");
    EXPECT_EQ(Output(inFolder + shell[2]), "7|1|0\n8|0|1\n");
}

}  // namespace
}  // namespace vardel
