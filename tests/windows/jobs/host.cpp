#include "jobs/host.h"

#include <filesystem>
#include <fstream>
#include <iterator>
#include <objbase.h>

namespace korvex::tests {

namespace {

const std::filesystem::path jobs = KORVEX_JOBS;

/// Windows programs see the host system's files below a drive; the ODBC driver does not.
std::string WithoutDrive(std::string path) {
    if (const std::size_t colon = path.find(':'); colon != std::string::npos) path.erase(0, colon + 1);
    return path;
}

}  // namespace

Host::Host() {
    CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    const auto folder = jobs / "host" / testing::UnitTest::GetInstance()->current_test_info()->name();
    std::filesystem::remove_all(folder);
    std::filesystem::create_directories(folder / "out");
    for (const char* database : {"orders.db", "target.db"})
        std::filesystem::copy_file(jobs / database, folder / database);
    std::filesystem::current_path(folder);
}

Host::~Host() { CoUninitialize(); }

std::string Host::ReadFile(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    EXPECT_TRUE(file) << path;
    return {std::istreambuf_iterator<char>(file), {}};
}

std::string Host::ConnectionString() const {
    const auto database = std::filesystem::current_path() / "target.db";
    return "DRIVER=SQLite3;FKSupport=1;Database=" + WithoutDrive(database.generic_string());
}

}  // namespace korvex::tests
