// Script generation against the bare engine: a whole run, and the relationship builder alone, over the same
// statements executed through the SQLite C interface; how the time grows with the definition; what memory a
// run takes.

#include "support/measure.h"
#include "support/repository_generator.h"
#include "support/statement_recorder.h"
#include "surface/cls_create_db.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

namespace korvex::bench {
namespace {

namespace fs = std::filesystem;

/// Reports of opened files are not what is measured.
class SilentDesktop : public platform::Desktop {
  public:
    void ShowMessage(std::string_view text, std::int32_t, std::string_view) override {
        std::fprintf(stderr, "unexpected message: %.*s\n", static_cast<int>(text.size()), text.data());
        std::exit(1);
    }
    void OpenEditor(std::string_view) override {}
};

Platform BenchPlatform() {
    Platform platform = DefaultPlatform();
    platform.desktop = std::make_shared<SilentDesktop>();
    return platform;
}

/// The least disturbed of several rounds: each takes seconds, in which much may happen on a machine.
double Least(const std::vector<double>& times) { return *std::ranges::min_element(times); }

/// One generated repository; every round works on a fresh copy of it.
class Scenario {
  public:
    Scenario(const fs::path& folder, std::int64_t objects)
        : m_original((folder / ("repository" + std::to_string(objects) + ".db")).string()),
          m_copy((folder / "copy.db").string()),
          m_scripts((folder / "scripts").string()) {
        fs::create_directory(m_scripts);
        RunApart([&] { GenerateRepository(m_original, objects); });
    }

    void Script() const {
        clsCreateDb generator(BenchPlatform());
        generator.ScriptFilePath(m_scripts);
        generator.DoMSsqlDb(m_copy, "Bench");
    }

    void Relate() const {
        clsCreateDb generator(BenchPlatform());
        generator.OpenRepository(m_copy);
        generator.CreateRelationship("Bench");
        generator.CloseRepository();
    }

    void Refresh() const {
        for (const char* tail : {"", "-wal", "-shm", "-journal"})
            fs::remove(m_copy + tail);
        fs::copy_file(m_original, m_copy);
    }

    std::uintmax_t OutputSize() const {
        std::uintmax_t size = 0;
        for (const auto& file : fs::directory_iterator(m_scripts))
            size += file.file_size();
        return size;
    }

    using Work = void (Scenario::*)() const;

    Comparison Compare(Work work, int rounds) const {
        const Recording recording = Record(work);
        std::vector<double> ours;
        std::vector<double> floors;
        for (int round = 0; round < rounds; ++round) {
            ours.push_back(Time(work));
            Refresh();
            floors.push_back(Seconds([&] { Replay(recording, m_copy); }));
        }
        return {Least(ours), Least(floors), Least(ours) / Least(floors)};
    }

    double Time(Work work) const {
        Refresh();
        return Seconds([&] { (this->*work)(); });
    }

  private:
    Recording Record(Work work) const {
        Refresh();
        const StatementRecorder recorder;
        (this->*work)();
        return recorder.Statements();
    }

    std::string m_original;
    std::string m_copy;
    std::string m_scripts;
};

double PeakMemoryOverOutput(const Scenario& scenario) {
    scenario.Refresh();
    const std::size_t start = ResidentMemory();
    ResetPeakMemory();
    scenario.Script();
    return static_cast<double>(PeakMemory() - start) / static_cast<double>(scenario.OutputSize());
}

void Run(int rounds) {
    const TemporaryFolder folder;
    const Scenario small(folder.Path(), 2000);
    const Scenario large(folder.Path(), 8000);

    const double memory =
        PeakMemoryOverOutput(large);  // first: freed memory of other work would hide some of it
    std::printf("output of 8,000 objects      %9.2f MB\n", static_cast<double>(large.OutputSize()) / 1e6);

    std::vector<double> largeTimes;
    std::vector<double> smallTimes;
    for (int round = 0; round < rounds; ++round) {
        largeTimes.push_back(large.Time(&Scenario::Script));
        smallTimes.push_back(small.Time(&Scenario::Script));
    }
    const Comparison script = large.Compare(&Scenario::Script, rounds);
    Report("script run, 8,000 objects", script);
    Report("script run, 2,000 objects", small.Compare(&Scenario::Script, rounds));
    const Comparison relate = large.Compare(&Scenario::Relate, rounds);
    Report("relate, 8,000 objects", relate);
    Report("relate, 2,000 objects", small.Compare(&Scenario::Relate, rounds));

    PrintRatio("script_run_vs_floor", script.ratio);
    PrintRatio("relate_vs_floor", relate.ratio);
    PrintRatio("script_run_growth_4x", Least(largeTimes) / Least(smallTimes));
    PrintRatio("peak_memory_vs_output", memory);
}

}  // namespace
}  // namespace korvex::bench

int main(int argc, char** argv) {
    return korvex::bench::RunBenchmark("scripts", argc, argv, 5, korvex::bench::Run);
}
