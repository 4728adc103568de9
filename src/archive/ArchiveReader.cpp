#include "archive/ArchiveReader.h"

#include <bit>
#include <exception>
#include <sstream>
#include <utility>

#include "models/Model.h"

namespace vardel {

namespace {

// What others have put in place of a text is shown as text.
constexpr const char* RunFields =
    "SELECT r.ID, CAST(ifnull(r.Model, '') AS TEXT), CAST(ifnull(r.Parameters, '') AS TEXT), "
    "CAST(ifnull(r.Comment, '') AS TEXT), CAST(ifnull(r.Date_Time, '') AS TEXT), "
    "(SELECT count(*) FROM DataSets d WHERE d.ID = r.ID) FROM ";

constexpr std::int64_t UsualNumbersToAPoint = 2;

const char* FieldOf(RunOrder::By by) {
    switch (by) {
        case RunOrder::By::Time:
            return "Date_Time";
        case RunOrder::By::Comment:
            return "Comment COLLATE NOCASE";
        case RunOrder::By::Parameters:
            return "Parameters COLLATE NOCASE";
        default:
            return "ID";
    }
}

// The condition for the words of a search, whose values go behind those that there are.
std::string Search(const std::string& search, std::vector<FieldValue>& values) {
    constexpr const char* Text =
        "instr(lower(ID || ' ' || ifnull(Date_Time, '') || ' ' || ifnull(Parameters, '') || ' ' || "
        "ifnull(Comment, '')), lower(?";
    std::string condition;
    std::istringstream words(search);
    for (std::string word; words >> word;) {
        values.emplace_back(word);
        condition += (condition.empty() ? " WHERE " : " AND ") + std::string(Text) +
                     std::to_string(values.size()) + ")) > 0";
    }
    return condition;
}

double DoubleAt(const Bytes& bytes, std::size_t at) {
    std::uint64_t bits = 0;
    for (std::size_t i = 0; i < sizeof bits; ++i)
        bits |= static_cast<std::uint64_t>(bytes[at + i]) << (8 * i);
    return std::bit_cast<double>(bits);
}

// The points of a field "DataSet", which has one byte more than they have. Nothing where there are
// not so many in it.
std::optional<CurveRow> PointsIn(const Bytes& bytes, std::int64_t count,
                                 std::int64_t numbersToAPoint) {
    if (count < 0 || bytes.empty()) return std::nullopt;
    const std::size_t numbers = (bytes.size() - 1) / sizeof(double);
    const auto width = static_cast<std::size_t>(numbersToAPoint);
    const auto points = static_cast<std::size_t>(count);
    if ((bytes.size() - 1) % sizeof(double) != 0 || numbers % width != 0 ||
        numbers / width != points)
        return std::nullopt;
    CurveRow curve;
    for (std::vector<double>* column : {&curve.x, &curve.y, &curve.z}) {
        const auto place = static_cast<std::size_t>(column == &curve.x   ? 0
                                                    : column == &curve.y ? 1
                                                                         : 2);
        if (place >= width) break;
        column->reserve(points);
        for (std::size_t i = 0; i < points; ++i)
            column->push_back(DoubleAt(bytes, (i * width + place) * sizeof(double)));
    }
    return curve;
}

// A row of legend, number of points and points.
CurveRow CurveIn(const Rows& row, std::int64_t run, std::int64_t numbersToAPoint) {
    const std::string legend = row.Text(0).value_or("");
    const std::string which = "The curve \"" + legend + "\" of run " + std::to_string(run);
    const auto count = row.Number(1);
    const auto bytes = row.Blob(2);
    if (!count || !bytes) throw ArchiveFault(which + " has no points.");
    auto curve = PointsIn(*bytes, *count, numbersToAPoint);
    if (!curve)
        throw ArchiveFault(which + " is damaged: " + std::to_string(bytes->size()) +
                           " bytes do not hold " + std::to_string(*count) + " points of " +
                           std::to_string(numbersToAPoint) + " numbers.");
    curve->legend = legend;
    return *std::move(curve);
}

}  // namespace

template <class Read>
auto ArchiveReader::Reading(Read read) const {
    try {
        return read();
    } catch (const ArchiveFault&) {
        throw;
    } catch (const std::exception& error) {
        throw ArchiveFault("The archive " + path_ + " cannot be read: " + error.what() + '.');
    }
}

ArchiveReader::ArchiveReader(std::string path, int longestWait) : path_(std::move(path)) {
    database_ = Reading([&] { return Database::OpenForReading(path_, longestWait); });
    try {
        for (const char* table : {"ModelRun", "DataSets"}) database_->DemandTable(table);
        database_
            ->Select(
                "SELECT ID, Model, Parameters, Comment, Date_Time, DataSetType "
                "FROM ModelRun")
            .Next();
        database_->Select("SELECT ID, Legend, PointCount, DataSet FROM DataSets").Next();
    } catch (const std::exception& error) {
        throw ArchiveFault(path_ + " is no archive: " + error.what() + '.');
    }
}

std::int64_t ArchiveReader::RunCount(const RunOrder& order) const {
    return Reading([&] {
        std::vector<FieldValue> values;
        const std::string found = Search(order.search, values);
        Rows count = database_->Select("SELECT count(*) FROM ModelRun" + found, values);
        count.Next();
        return count.Number(0).value_or(0);
    });
}

std::vector<RunRow> ArchiveReader::RunsOf(const std::string& rows,
                                          const std::vector<FieldValue>& values) const {
    return Reading([&] {
        std::vector<RunRow> runs;
        Rows row = database_->Select(RunFields + rows, values);
        while (row.Next()) {
            const auto number = row.Number(0);
            if (!number)
                throw ArchiveFault("The archive " + path_ + " has a run without a number.");
            const std::int64_t curves = row.Number(5).value_or(0);
            runs.push_back({*number, row.Text(1).value_or(""), row.Text(2).value_or(""),
                            row.Text(3).value_or(""), row.Text(4).value_or(""), curves,
                            curves == static_cast<std::int64_t>(ComparedModels.size())});
        }
        return runs;
    });
}

std::vector<RunRow> ArchiveReader::Runs(const RunOrder& order, std::int64_t offset,
                                        std::int64_t limit) const {
    std::vector<FieldValue> values{limit, offset};
    const std::string found = Search(order.search, values);
    const std::string direction = order.descending ? " DESC" : " ASC";
    const std::string ordered =
        std::string(" ORDER BY ") + FieldOf(order.by) + direction + ", ID" + direction;
    // Curves are counted for the rows that are wanted, not for all that are sorted.
    return RunsOf("(SELECT * FROM ModelRun" + found + ordered + " LIMIT ?1 OFFSET ?2) r" + ordered,
                  values);
}

std::optional<RunRow> ArchiveReader::Run(std::int64_t number) const {
    const std::vector<RunRow> found = RunsOf("ModelRun r WHERE r.ID = ?1", {number});
    if (found.empty()) return std::nullopt;
    return found.front();
}

std::vector<CurveRow> ArchiveReader::Curves(std::int64_t number) const {
    return Reading([&] {
        Rows run = database_->Select("SELECT DataSetType FROM ModelRun WHERE ID = ?1", {number});
        const bool hasRun = run.Next();
        const std::int64_t numbersToAPoint =
            hasRun ? run.Number(0).value_or(0) : UsualNumbersToAPoint;
        std::vector<CurveRow> curves;
        Rows row = database_->Select(
            "SELECT Legend, PointCount, DataSet FROM DataSets WHERE ID = ?1 ORDER BY rowid",
            {number});
        while (row.Next()) {
            if (numbersToAPoint != 2 && numbersToAPoint != 3)
                throw ArchiveFault("Run " + std::to_string(number) +
                                   " has points of neither two nor three numbers.");
            curves.push_back(CurveIn(row, number, numbersToAPoint));
        }
        if (!hasRun && curves.empty())
            throw ArchiveFault("The archive " + path_ + " has no run " + std::to_string(number) +
                               '.');
        return curves;
    });
}

std::vector<std::int64_t> ArchiveReader::CurvesWithoutRun() const {
    return Reading([&] {
        std::vector<std::int64_t> numbers;
        Rows row = database_->Select(
            "SELECT DISTINCT ID FROM DataSets WHERE ID NOT IN (SELECT ID FROM ModelRun) ORDER BY "
            "ID");
        while (row.Next())
            if (const auto number = row.Number(0)) numbers.push_back(*number);
        return numbers;
    });
}

}  // namespace vardel
