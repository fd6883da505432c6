#include "jobs/host.h"

#include <string>

namespace korvex::tests {
namespace {

using CreateDb = com::ComPtr<::_clsCreateDb>;

struct Dialect {
    HRESULT (STDMETHODCALLTYPE ::_clsCreateDb::*run)(BSTR*, BSTR*, VARIANT*);
    /// The files, in the order of the buffers.
    const char* files[5];
};

constexpr Dialect dialects[] = {
    {&::_clsCreateDb::DoMSsqlDb, {"MSCreate.sql", "MSDel.sql", "MSSProc.sql", "MSFKCr.sql", "MSFKdel.sql"}},
    {&::_clsCreateDb::DoOracleDb,
     {"OraCreate.sql", "OraDel.sql", "OraSProc.sql", "OraFKCr.sql", "OraFKDel.sql"}},
    {&::_clsCreateDb::DoSybaseDb, {"SyCreate.sql", "SyDel.sql", "SySProc.sql", "SyFKCr.sql", "SyFKdel.sql"}},
};

constexpr HRESULT (STDMETHODCALLTYPE ::_clsCreateDb::*buffers[])(BSTR*) = {
    &::_clsCreateDb::get_DbSQL, &::_clsCreateDb::get_DropSQL, &::_clsCreateDb::get_StoredProcSQL,
    &::_clsCreateDb::get_FkConstraintSQL, &::_clsCreateDb::get_DropFkConstraintSQL};

class HostOfScripts : public Host {
  protected:
    CreateDb NewCreateDb() const {
        auto scripts = Create<::_clsCreateDb>(__uuidof(::clsCreateDb));
        Text folder("out");
        EXPECT_EQ(scripts->put_ScriptFilePath(&folder), S_OK);
        return scripts;
    }
};

TEST_F(HostOfScripts, FilesAndBuffersAreTheGoldenOnes) {
    for (const Dialect& dialect : dialects) {
        const CreateDb scripts = NewCreateDb();
        Text repository("orders.db");
        Text storage("Orders");
        VARIANT prefix = MissingArgument();
        ASSERT_EQ((scripts.Get()->*dialect.run)(&repository, &storage, &prefix), S_OK);
        EXPECT_EQ(Get(scripts, &::_clsCreateDb::get_FKPrefix), "FK_");
        for (std::size_t i = 0; i < std::size(buffers); ++i) {
            const std::string file = dialect.files[i];
            const std::string golden = ReadFile(std::string(KORVEX_EXAMPLES "/scripts/").append(file));
            EXPECT_TRUE(ReadFile("out/" + file) == golden) << file;
            EXPECT_TRUE(Get(scripts, buffers[i]) + "\r\n" == golden) << file;
        }
    }
}

}  // namespace
}  // namespace korvex::tests
