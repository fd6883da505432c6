#pragma once

#include <chrono>
#include <cstddef>
#include <filesystem>
#include <functional>
#include <string_view>
#include <vector>

namespace korvex::bench {

/// Wall-clock seconds that `work` takes.
double Seconds(const std::function<void()>& work);
/// Seconds that processors spend on it, in the system's calls as well: for work that waits for nothing, where
/// other programs on the machine would count only against the longer of two runs.
double ProcessorSeconds(const std::function<void()>& work);
/// The same of work in a process of its own, where what earlier work left in memory does not count.
double ProcessorSecondsApart(const std::function<void()>& work);

double Median(std::vector<double> values);

/// Our time over the floor's. Each round runs both, one right after the other; the middle times and the
/// middle ratio are what is said, so that a disturbance does not decide.
struct Comparison {
    double seconds = 0;
    double floorSeconds = 0;
    double ratio = 0;
};

/// Both give the seconds of one round that they timed themselves.
Comparison CompareTimed(int rounds, const std::function<double()>& ours,
                        const std::function<double()>& floor);

/// Times both, `count` runs a round each; the times are those of one run.
Comparison Compare(int rounds, int count, const std::function<void()>& ours,
                   const std::function<void()>& floor,
                   double (*clock)(const std::function<void()>&) = Seconds);

/// Prints the two times and their ratio for a person.
void Report(std::string_view name, const Comparison& comparison);

/// The line that a claim is read from.
void PrintRatio(std::string_view name, double value);

/// Peak resident memory of this process since ResetPeakMemory, and the memory resident now, in bytes.
void ResetPeakMemory();
std::size_t PeakMemory();
std::size_t ResidentMemory();

/// A benchmark's main: `run` with the number of rounds that the command line gives, or `rounds`. "--help"
/// says so. The exit code; a failure is reported on stderr.
int RunBenchmark(const char* name, int argc, char** argv, int rounds, void (*run)(int rounds));

/// Runs `work` in a process of its own, so that this one's memory stays as it was. Raises when it failed
/// there.
void RunApart(const std::function<void()>& work);

/// A folder of its own that goes when the object goes.
class TemporaryFolder {
  public:
    TemporaryFolder();
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;
    ~TemporaryFolder();

    const std::filesystem::path& Path() const noexcept { return m_path; }

  private:
    std::filesystem::path m_path;
};

}  // namespace korvex::bench
