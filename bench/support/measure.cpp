#include "support/measure.h"

#include <algorithm>
#include <charconv>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <fstream>
#include <stdexcept>
#include <string>
#include <sys/resource.h>
#include <sys/wait.h>
#include <system_error>
#include <unistd.h>

namespace korvex::bench {

namespace {

/// A "VmXXX:   123 kB" line of the process's status, in bytes.
std::size_t StatusBytes(std::string_view key) {
    std::ifstream status("/proc/self/status");
    std::string line;
    while (std::getline(status, line)) {
        if (line.starts_with(key)) return std::stoul(line.substr(key.size() + 1)) * 1024;
    }
    throw std::runtime_error("no " + std::string(key) + " in /proc/self/status");
}

double ProcessorTime() {
    timespec time{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
}

double Seconds(const timeval& time) {
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) * 1e-6;
}

/// Of the processes that were started here and have ended.
double ChildrenTime() {
    rusage usage{};
    getrusage(RUSAGE_CHILDREN, &usage);
    return Seconds(usage.ru_utime) + Seconds(usage.ru_stime);
}

}  // namespace

double Seconds(const std::function<void()>& work) {
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

double ProcessorSeconds(const std::function<void()>& work) {
    const double start = ProcessorTime();
    work();
    return ProcessorTime() - start;
}

double ProcessorSecondsApart(const std::function<void()>& work) {
    const double start = ChildrenTime();
    RunApart(work);
    return ChildrenTime() - start;
}

double Median(std::vector<double> values) {
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

Comparison CompareTimed(int rounds, const std::function<double()>& ours,
                        const std::function<double()>& floor) {
    std::vector<double> times;
    std::vector<double> floors;
    std::vector<double> ratios;
    for (int round = 0; round < rounds; ++round) {
        times.push_back(ours());
        floors.push_back(floor());
        ratios.push_back(times.back() / floors.back());
    }
    return {Median(times), Median(floors), Median(ratios)};
}

Comparison Compare(int rounds, int count, const std::function<void()>& ours,
                   const std::function<void()>& floor, double (*clock)(const std::function<void()>&)) {
    const auto secondsOfOne = [&](const std::function<void()>& work) {
        const double seconds = clock([&] {
            for (int i = 0; i < count; ++i)
                work();
        });
        return seconds / count;
    };
    return CompareTimed(
        rounds, [&] { return secondsOfOne(ours); }, [&] { return secondsOfOne(floor); });
}

void Report(std::string_view name, const Comparison& comparison) {
    std::printf("%-28.*s %9.2f ms   floor %9.2f ms   ratio %.3f\n", static_cast<int>(name.size()),
                name.data(), comparison.seconds * 1e3, comparison.floorSeconds * 1e3, comparison.ratio);
}

void PrintRatio(std::string_view name, double value) {
    std::printf("RATIO %.*s %.3f\n", static_cast<int>(name.size()), name.data(), value);
}

int RunBenchmark(const char* name, int argc, char** argv, int rounds, void (*run)(int rounds)) {
    const std::string_view argument = argc > 1 ? argv[1] : "";
    if (argc > 1) std::from_chars(argument.data(), argument.data() + argument.size(), rounds = 0);
    const bool asksForHelp = argument == "--help" || argument == "-h";
    if (rounds < 1 || asksForHelp || argc > 2) {
        std::fprintf(
            asksForHelp ? stdout : stderr,
            "usage: %s [rounds]\n\n"
            "Measures, and prints a line \"RATIO name value\" for each claim: the middle of that many "
            "rounds.\n",
            name);
        return asksForHelp ? 0 : 2;
    }
    try {
        run(rounds);
        return 0;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s: %s\n", name, error.what());
        return 1;
    }
}

void ResetPeakMemory() { std::ofstream("/proc/self/clear_refs") << "5"; }

std::size_t PeakMemory() { return StatusBytes("VmHWM:"); }

std::size_t ResidentMemory() { return StatusBytes("VmRSS:"); }

void RunApart(const std::function<void()>& work) {
    std::fflush(nullptr);
    const pid_t child = fork();
    if (child < 0) throw std::system_error(errno, std::generic_category(), "cannot start a process");
    if (child == 0) {
        try {
            work();
            _exit(0);
        } catch (const std::exception& error) {
            std::fprintf(stderr, "%s\n", error.what());
            _exit(1);
        }
    }
    int status = 0;
    waitpid(child, &status, 0);
    if (status != 0) throw std::runtime_error("a process of its own failed");
}

TemporaryFolder::TemporaryFolder() {
    std::string pattern = (std::filesystem::temp_directory_path() / "korvex-bench-XXXXXX").string();
    if (mkdtemp(pattern.data()) == nullptr) {
        throw std::system_error(errno, std::generic_category(), "cannot make a folder like " + pattern);
    }
    m_path = pattern;
}

TemporaryFolder::~TemporaryFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(m_path, ignored);
}

}  // namespace korvex::bench
