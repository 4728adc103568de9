#include <cstdint>
#include <filesystem>
#include <fstream>
#include <string>

#include "Check.h"
#include "archive/ArchiveReader.h"
#include "services/Files.h"

namespace {

// A file of this process alone, gone with it.
class ScratchFile {
public:
    ~ScratchFile() { std::filesystem::remove(path_); }
    const std::string& Holding(const std::uint8_t* data, std::size_t size) {
        std::ofstream(path_, std::ios::binary | std::ios::trunc)
            .write(reinterpret_cast<const char*>(data), static_cast<std::streamsize>(size));
        return path_;
    }

private:
    const std::string path_ =
        vardel::NewUniqueFile(std::filesystem::temp_directory_path().string());
};

void ReadAll(const vardel::ArchiveReader& archive) {
    const auto runs = archive.Runs({vardel::RunOrder::By::Time, true}, 0, 20);
    Check(runs.size() <= 20);
    for (const vardel::RunRow& run : runs) {
        Check(archive.Run(run.number).has_value());
        for (const vardel::CurveRow& curve : archive.Curves(run.number)) {
            Check(curve.x.size() == curve.y.size());
            Check(curve.z.empty() || curve.z.size() == curve.x.size());
        }
    }
    static_cast<void>(archive.CurvesWithoutRun());
}

}  // namespace

// A file that is no archive, or a damaged one, is told and nothing else.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static ScratchFile file;
    try {
        ReadAll(vardel::ArchiveReader(file.Holding(data, size)));
    } catch (const vardel::ArchiveFault& fault) {
        Check(fault.what()[0] != '\0');
    }
    return 0;
}
