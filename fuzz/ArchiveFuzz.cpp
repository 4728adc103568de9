#include <sqlite3.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "Check.h"
#include "archive/ArchiveReader.h"
#include "archive/ArchivedCurves.h"
#include "archive/ArchivedInputs.h"
#include "archive/RunCsv.h"

namespace {

// A file in the memory of this process, by the library's own file system for such: it spares a
// thousand times what opening, reading and writing one on the disk costs.
class MemoryFile {
public:
    MemoryFile() {
        sqlite3_initialize();
        sqlite3_vfs* memory = sqlite3_vfs_find("memdb");
        content_.resize(static_cast<std::size_t>(memory->szOsFile));
        constexpr int Mode = SQLITE_OPEN_MAIN_DB | SQLITE_OPEN_CREATE | SQLITE_OPEN_READWRITE;
        Check(memory->xOpen(memory, "/fuzz", File(), Mode, nullptr) == SQLITE_OK);
    }
    MemoryFile(const MemoryFile&) = delete;
    MemoryFile& operator=(const MemoryFile&) = delete;
    ~MemoryFile() { File()->pMethods->xClose(File()); }

    const char* Holding(const std::uint8_t* data, std::size_t size) {
        const sqlite3_io_methods& methods = *File()->pMethods;
        sqlite3_int64 before = 0;
        methods.xFileSize(File(), &before);
        const auto now = static_cast<sqlite3_int64>(size);
        if (now < before) methods.xTruncate(File(), now);
        methods.xWrite(File(), data, static_cast<int>(size), 0);
        return "file:/fuzz?vfs=memdb";
    }

private:
    sqlite3_file* File() { return reinterpret_cast<sqlite3_file*>(content_.data()); }
    std::vector<std::max_align_t> content_;
};

void CheckCurves(const vardel::RunRow& run, const std::vector<vardel::CurveRow>& curves) {
    for (const vardel::CurveRow& curve : curves) {
        Check(curve.x.size() == curve.y.size());
        Check(curve.z.empty() || curve.z.size() == curve.x.size());
    }
    const vardel::CurvePlot preview = vardel::PreviewOf(curves);
    Check(preview.size() == curves.size());
    for (std::size_t i = 0; i < curves.size(); ++i)
        Check(preview[i].values.size() == curves[i].y.size());
    const std::string csv = vardel::RunCsv(run, curves);
    const auto lines = static_cast<std::size_t>(std::count(csv.begin(), csv.end(), '\n'));
    Check(lines >= 4 + (curves.empty() ? 0 : curves.front().x.size()));
    if (const auto inputs = vardel::InputsOfRun(run.parameters, curves))
        Check(std::isfinite(inputs->path.powerWatts) && inputs->path.powerWatts > 0.0);
}

void ReadAll(const vardel::ArchiveReader& archive) {
    const auto runs = archive.Runs({vardel::RunOrder::By::Time, true}, 0, 20);
    Check(runs.size() <= 20);
    for (const vardel::RunRow& run : runs) {
        // A damaged table may list a run and not find it.
        if (const auto found = archive.Run(run.number)) Check(found->number == run.number);
        CheckCurves(run, archive.Curves(run.number));
    }
    static_cast<void>(archive.CurvesWithoutRun());
}

}  // namespace

// A file that is no archive, or a damaged one, is told and nothing else.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static MemoryFile file;
    try {
        ReadAll(vardel::ArchiveReader(file.Holding(data, size)));
    } catch (const vardel::ArchiveFault& fault) {
        Check(fault.what()[0] != '\0');
    }
    return 0;
}
