#include "archive/dbOperations.h"

#include <bit>
#include <exception>
#include <limits>
#include <stdexcept>

#include "services/Platform.h"
#include "text/NumberText.h"

namespace vardel {

namespace {

constexpr const char* UsualArchive = "C:\\My Documents\\New Model Data.mdb";

void PutDouble(Bytes& bytes, std::size_t at, double x) {
    const auto bits = std::bit_cast<std::uint64_t>(x);
    for (std::size_t i = 0; i < sizeof bits; ++i)
        bytes[at + i] = static_cast<unsigned char>(bits >> (8 * i));
}

Bytes PackPoints(std::int32_t count, std::initializer_list<std::span<const double>> coordinates) {
    for (const auto& values : coordinates)
        if (count < 0 || static_cast<std::size_t>(count) > values.size())
            throw std::out_of_range("A data set has fewer points than its point count");
    const auto points = static_cast<std::size_t>(count);
    Bytes bytes(points * coordinates.size() * sizeof(double) + 1);
    std::size_t at = 0;
    for (std::size_t i = 0; i < points; ++i)
        for (const auto& values : coordinates) {
            PutDouble(bytes, at, values[i]);
            at += sizeof(double);
        }
    return bytes;
}

// As the databases' own functions for dates read it.
std::string DateTimeText(const CalendarTime& time) {
    const auto two = [](int part) { return FormatNumber(part, "00"); };
    return FormatNumber(time.year, "0000") + '-' + two(time.month) + '-' + two(time.day) + ' ' +
           two(time.hour) + ':' + two(time.minute) + ':' + two(time.second);
}

}  // namespace

Bytes dbOperations::PackPointsXY(std::int32_t Count, std::span<const double> X,
                                 std::span<const double> Y) {
    return PackPoints(Count, {X, Y});
}

Bytes dbOperations::PackPointsXYZ(std::int32_t Count, std::span<const double> X,
                                  std::span<const double> Y, std::span<const double> Z) {
    return PackPoints(Count, {X, Y, Z});
}

void dbOperations::TellFailure(const std::function<void()>& steps) {
    try {
        steps();
    } catch (const std::exception& error) {
        hasFailed_ = true;
        windows_.ShowMessage({.text = error.what()});
    }
}

void dbOperations::OpenArchive(const std::string& Name) {
    hasFailed_ = false;
    TellFailure([&] {
        ArchivePath = Name;
        if (ArchivePath.empty() || ArchivePath.find('*') != std::string::npos)
            ArchivePath = UsualArchive;
        ArchiveDatabase = Database::OpenDatabase(ArchivePath);
        ModelRunRecords = ArchiveDatabase->OpenRecordset("ModelRun");
        DataSetRecords = ArchiveDatabase->OpenRecordset("DataSets");
        CurrentRunId = -1;
    });
}

void dbOperations::AddModelRun(const std::string& Model, const std::string& Parameters,
                               const std::string& Comment, const CalendarTime& DateTime,
                               std::int32_t DataSetType) {
    TellFailure([&] {
        NewRow row = ModelRunRecords.AddNew();
        row.Set("Model", Model);
        row.Set("Parameters", Parameters);
        row.Set("Comment", Comment);
        row.Set("Date_Time", DateTimeText(DateTime));
        row.Set("DataSetType", DataSetType);
        const std::int64_t number = row.Number("ID");
        if (number > std::numeric_limits<std::int32_t>::max())
            throw std::overflow_error("The archive has no number left for another run");
        CurrentRunId = static_cast<std::int32_t>(number);
        row.Update();
        ModelRunRecords.MoveLast();
    });
}

void dbOperations::AddDataSet(std::int32_t RunId, const std::string& Legend,
                              const std::string& Comment, std::int32_t PointCount,
                              std::int32_t DataSetType, std::span<const double> X,
                              std::span<const double> Y, std::span<const double> Z) {
    TellFailure([&] {
        NewRow row = DataSetRecords.AddNew();
        row.Set("ID", RunId);
        row.Set("Legend", Legend);
        row.Set("Comment", Comment);
        row.Set("PointCount", PointCount);
        if (DataSetType == 2)
            row.AppendChunk("DataSet", PackPointsXY(PointCount, X, Y));
        else if (DataSetType == 3)
            row.AppendChunk("DataSet", PackPointsXYZ(PointCount, X, Y, Z));
        row.Update();
    });
}

void dbOperations::CloseArchive() {
    TellFailure([&] {
        ModelRunRecords.Close();
        DataSetRecords.Close();
    });
}

}  // namespace vardel
