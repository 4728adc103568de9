#pragma once

namespace vardel {

// The topics of the context help.
enum class HelpTopic : int {
    None = 0,
    Inputs = 10,
    Area = 30,
    FileMenu = 210,
    UnitsMenu = 220,
    Calculation = 230,
    HelpMenu = 240,
    About = 250,
    FieldStrengthGraphs = 300,
    PercentTime = 330,
    PercentLocation = 340,
    Reach = 350,
    Explanation = 360,
    MeasuredData = 370,
    Archive = 380,
    Terrain = 390,
    ReportLog = 400,
    Printing = 410,
    AllModels = 500,
    Itu529 = 510,
    Davidson = 520,
    Cost231 = 530,
    UsVariant = 540,
};

}  // namespace vardel
