// The report log: appending a line to a short and a long log beside writing it to a plain file, and
// saving 100,000 lines beside a plain write, flush and rename of the same bytes.

#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <unistd.h>

#include <cstdio>

#include "SamplePath.h"
#include "richtext/Rtf.h"
#include "services/Files.h"
#include "support/RunningProgram.h"

namespace vardel {
namespace {

RunningProgram& ProgramWithLines(long lines) {
    static RunningProgram running;
    running.program.ReportLog().Clear();
    for (long i = 0; i < lines; ++i) AddSampleLine(running.program.ReportLog(), running.platform);
    return running;
}

void AppendLine(benchmark::State& state) {
    RunningProgram& running = ProgramWithLines(state.range(0));
    for (auto _ : state) AddSampleLine(running.program.ReportLog(), running.platform);
}
BENCHMARK(AppendLine)->Arg(0)->Arg(100'000)->Iterations(20'000);

// The same line, computed as well, at the end of a plain file.
void AppendLine_floor(benchmark::State& state) {
    FakePlatform platform;
    const int fd = ::open(platform.folder.Path("plain.txt").c_str(), O_WRONLY | O_CREAT, 0600);
    for (auto _ : state) {
        std::string line;
        const Calculation calculation(SampleInputs, SamplePath.powerWatts);
        for (const LogPiece& piece : LogLine(SamplePath, calculation, platform.Now()))
            line += piece.text;
        line += "\r\n";
        if (::write(fd, line.data(), line.size()) != static_cast<ssize_t>(line.size()))
            state.SkipWithError("cannot write");
    }
    ::close(fd);
}
BENCHMARK(AppendLine_floor)->Iterations(20'000);

void SaveLog(benchmark::State& state) {
    RunningProgram& running = ProgramWithLines(state.range(0));
    const std::string path = running.platform.folder.Path("log.rtf");
    for (auto _ : state) running.program.ReportLog().SaveFile(path);
}
BENCHMARK(SaveLog)->Arg(100'000)->Unit(benchmark::kMillisecond)->UseRealTime();

void SaveLog_floor(benchmark::State& state) {
    RunningProgram& running = ProgramWithLines(state.range(0));
    const std::string bytes = WriteRtf(running.Log().Content());
    const std::string path = running.platform.folder.Path("plain.rtf");
    const std::string part = path + ".part";
    for (auto _ : state) {
        const int fd = ::open(part.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
        if (::write(fd, bytes.data(), bytes.size()) != static_cast<ssize_t>(bytes.size()) ||
            ::fsync(fd) != 0)
            state.SkipWithError("cannot write");
        ::close(fd);
        std::rename(part.c_str(), path.c_str());
    }
}
BENCHMARK(SaveLog_floor)->Arg(100'000)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace
}  // namespace vardel
