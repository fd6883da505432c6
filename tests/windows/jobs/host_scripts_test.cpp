#include "automation/com/com_variant.h"
#include "automation/dispatch.h"
#include "jobs/host.h"

#include <memory>
#include <string>
#include <vector>

namespace korvex::tests {
namespace {

using com::ComPtr;
using CreateDb = ComPtr<::_clsCreateDb>;

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

/// Dialect names from a host, by number.
class LanguageService final : public automation::TableObject {
  public:
    const automation::ClassInfo& Class() const noexcept override;
};

constexpr automation::Parameter getStringParameters[] = {
    {"library", automation::VarType::Integer},
    {"category", automation::VarType::Integer},
    {"number", automation::VarType::Long, automation::Passing::ByReference}};

constexpr automation::Member languageServiceMembers[] = {
    {"GetString", automation::InvokeKind::Method, getStringParameters, automation::VarType::String,
     [](automation::Object&, std::span<automation::Variant> arguments) -> automation::Variant {
         const bool isKnown = arguments[0] == automation::Variant(std::int16_t{410}) &&
                              arguments[1] == automation::Variant(std::int16_t{13}) &&
                              arguments[2] == automation::Variant(std::int32_t{94});
         return isKnown ? "Der Dritte" : "";
     }},
};

const automation::ClassInfo& LanguageService::Class() const noexcept {
    static constexpr automation::ClassInfo info{"LanguageService", {}, languageServiceMembers};
    return info;
}

/// What a For Each over the collection gives.
std::vector<std::string> Items(IDispatch* collection) {
    std::vector<std::string> items;
    com::ComVariant enumerator;
    DISPPARAMS none = {};
    EXPECT_EQ(collection->Invoke(DISPID_NEWENUM, IID_NULL, 0, DISPATCH_PROPERTYGET, &none, &enumerator,
                                 nullptr, nullptr),
              S_OK);
    const auto each = ComPtr<IUnknown>(enumerator.Value().punkVal).As<IEnumVARIANT>();
    for (com::ComVariant item; each->Next(1, &item, nullptr) == S_OK; item = com::ComVariant())
        items.push_back(com::FromBstr(item.Value().bstrVal));
    return items;
}

TEST_F(HostOfScripts, ALanguageServiceOfTheHostNamesTheDialects) {
    const CreateDb scripts = NewCreateDb();
    com::ComVariant service(automation::Variant(std::make_shared<LanguageService>()));
    ComPtr<IDispatch> types;
    ASSERT_EQ(scripts->get_ScriptTypes(&service, types.Put()), S_OK);
    EXPECT_EQ(Items(types.Get()), (std::vector<std::string>{"MS SQL", "Oracle", "Der Dritte"}));

    Text dialect("Der Dritte");
    Text repository("orders.db");
    Text storage("Orders");
    VARIANT prefix = MissingArgument();
    ASSERT_EQ(scripts->DoScript(&dialect, &repository, &storage, &prefix, &service), S_OK);
    EXPECT_TRUE(ReadFile("out/SyCreate.sql") == ReadFile(KORVEX_EXAMPLES "/scripts/SyCreate.sql"));
}

TEST_F(HostOfScripts, TheEnginesErrorsReachTheHostAsTheyAre) {
    const CreateDb scripts = NewCreateDb();
    Text repository("nowhere.db");
    EXPECT_EQ(scripts->DoMSsqlDb(&repository, nullptr, nullptr), static_cast<HRESULT>(0x800A0000 + 3024));
    ComPtr<IErrorInfo> info;
    ASSERT_EQ(GetErrorInfo(0, info.Put()), S_OK);
    com::Bstr source;
    com::Bstr description;
    info->GetSource(source.Put());
    info->GetDescription(description.Put());
    EXPECT_EQ(source.Text(), "DAO.DbEngine");
    EXPECT_EQ(description.Text(), "Couldn't find file: 'nowhere.db'.");
}

}  // namespace
}  // namespace korvex::tests
