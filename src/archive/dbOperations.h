#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>

#include "services/Database.h"
#include "text/CalendarTime.h"

namespace vardel {

class Windows;

// Writes runs into an archive: each a row of the table "ModelRun", and a row of "DataSets" for each
// of its curves. A run is written by OpenArchive, AddModelRun, AddDataSet for each curve,
// CloseArchive. Each of the four reports the failure of a step in a message and leaves out its
// steps behind that; the caller goes on.
class dbOperations {
public:
    explicit dbOperations(Windows& windows) : windows_(windows) {}

    // The file must be there with its tables.
    void OpenArchive(const std::string& Name);
    // The file stays open, without a lock, until another is opened.
    void CloseArchive();
    // Leaves the number of the run in CurrentRunId.
    void AddModelRun(const std::string& Model, const std::string& Parameters,
                     const std::string& Comment, const CalendarTime& DateTime,
                     std::int32_t DataSetType);
    // DataSetType is 2 for points (x, y), 3 for points (x, y, z), which alone reads Z. With any
    // other the row has no points.
    void AddDataSet(std::int32_t RunId, const std::string& Legend, const std::string& Comment,
                    std::int32_t PointCount, std::int32_t DataSetType, std::span<const double> X,
                    std::span<const double> Y, std::span<const double> Z);

    // Whether any step has failed since OpenArchive was called last.
    bool HasFailed() const { return hasFailed_; }

    // Count points as little-endian doubles, then one byte 0. Throw std::out_of_range where there
    // are not so many.
    static Bytes PackPointsXY(std::int32_t Count, std::span<const double> X,
                              std::span<const double> Y);
    static Bytes PackPointsXYZ(std::int32_t Count, std::span<const double> X,
                               std::span<const double> Y, std::span<const double> Z);

    std::string ArchivePath;                  // last given to the database
    std::optional<Database> ArchiveDatabase;  // none before the first was opened
    Recordset ModelRunRecords;
    Recordset DataSetRecords;
    std::int32_t CurrentRunId = 0;  // of the run being written; -1: none since the file was opened

private:
    void TellFailure(const std::function<void()>& steps);

    Windows& windows_;
    bool hasFailed_ = false;
};

}  // namespace vardel
