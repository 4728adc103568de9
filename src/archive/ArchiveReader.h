#pragma once

#include <cstdint>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include "services/Database.h"

namespace vardel {

// Why an archive, or a curve in it, cannot be read: a sentence for the user.
class ArchiveFault : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// A row of "ModelRun". A text that is missing is empty.
struct RunRow {
    std::int64_t number = 0;
    std::string model;
    std::string parameters;  // the inputs in words
    std::string comment;
    std::string time;  // local, as stored: YYYY-MM-DD hh:mm:ss
    std::int64_t curves = 0;
    bool complete = false;  // has as many curves as the program stores with a run
};

// A row of "DataSets" with its points unpacked.
struct CurveRow {
    std::string legend;
    std::vector<double> x, y;  // km, and dB or dB(µV/m)
    std::vector<double> z;     // of points of three numbers, else empty
};

// Which runs are listed, and how.
struct RunOrder {
    enum class By { Number, Time, Comment, Parameters };
    By by = By::Number;
    bool descending = false;
    // Words that number, time, parameters and comment together must hold, in small letters or
    // capitals; empty: all runs.
    std::string search = {};
};

// Reads an archive and never writes to it; other programs may do so meanwhile. Rows are read when
// they are asked for. Whatever cannot be read throws ArchiveFault. For one thread at a time.
class ArchiveReader {
public:
    // The file must be there and have the tables of an archive. Another program that is writing is
    // waited for so long, in ms.
    explicit ArchiveReader(std::string path, int longestWait = Database::LongestWait);

    const std::string& Path() const { return path_; }
    // How many runs the search leaves.
    std::int64_t RunCount(const RunOrder& order = {}) const;
    // Those from the offset on in the order, not more than limit. Runs that are alike in it come by
    // their numbers.
    std::vector<RunRow> Runs(const RunOrder& order, std::int64_t offset, std::int64_t limit) const;
    // Nothing where the archive has no run of the number.
    std::optional<RunRow> Run(std::int64_t number) const;

    // The curves of a run, in the order in which they were stored. They may be there without the
    // run; a number with neither is a fault.
    std::vector<CurveRow> Curves(std::int64_t number) const;
    // The numbers under which there are curves and no run, as a killed program leaves them.
    std::vector<std::int64_t> CurvesWithoutRun() const;

private:
    template <class Read>
    auto Reading(Read read) const;
    std::vector<RunRow> RunsOf(const std::string& rows,
                               const std::vector<FieldValue>& values) const;

    std::string path_;
    std::optional<Database> database_;
};

}  // namespace vardel
