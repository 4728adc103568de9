// From the start of a process until its window is painted: the program beside a program that shows
// an empty window and does nothing else.

#include <benchmark/benchmark.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <string>

#include "services/Files.h"
#include "support/FakePlatform.h"

namespace vardel {
namespace {

bool RunToItsEnd(std::string program, std::string argument) {
    char* arguments[] = {program.data(), argument.empty() ? nullptr : argument.data(), nullptr};
    pid_t child = 0;
    int status = 0;
    return ::posix_spawn(&child, program.c_str(), nullptr, nullptr, arguments, environ) == 0 &&
           ::waitpid(child, &status, 0) == child && status == 0;
}

void Start(benchmark::State& state, const char* program, bool namesFolder) {
    const ScratchFolder folder;
    // A start without measured data waits for an answer.
    ReplaceFile(folder.Path("measured.csv"), "0,450,0.5,Urban,1.5,1,100\n10,49.9\n");
    for (const char* variable : {"XDG_STATE_HOME", "XDG_CONFIG_HOME"})
        ::setenv(variable, folder.Path().c_str(), 1);
    ::setenv("QT_QPA_PLATFORM", "offscreen", 1);
    for (auto _ : state)
        if (!RunToItsEnd(program, namesFolder ? folder.Path() : std::string()))
            state.SkipWithError("the program failed");
}

BENCHMARK_CAPTURE(Start, program, START_PROGRAM, true)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime()
    ->Iterations(1)
    ->Repetitions(15);
BENCHMARK_CAPTURE(Start, bare_window, START_BARE, false)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime()
    ->Iterations(1)
    ->Repetitions(15);

}  // namespace
}  // namespace vardel
