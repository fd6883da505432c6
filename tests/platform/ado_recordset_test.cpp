#include "automation/convert.h"
#include "automation/text.h"
#include "platform/ado_fixture.h"

#include <gmock/gmock.h>

#include <algorithm>

namespace korvex::tests {
namespace {

using automation::Variant;
using native::sql::CallKind;
using testing::Each;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

class AdoRecordset : public AdoTest {
  protected:
    void SetUp() override {
        m_connection = Connect();
        Run(m_connection,
            "create table Customer (CustomerID integer primary key, Name varchar(20) NOT NULL, "
            "City varchar(20) default 'Ulm', Credit int default 7, Note text)");
    }

    std::int32_t Add(std::string_view name) {
        const auto recordset = Open(m_connection, "select * from Customer");
        recordset->AddNew();
        recordset->Fields("Name")->Value(Variant(name));
        recordset->Update();
        return automation::ToLong(recordset->Fields("CustomerID")->Value());
    }

    /// The texts of the calls of one kind since the seam records.
    std::vector<std::string> Calls(CallKind kind) const {
        std::vector<std::string> texts;
        for (const TestSeam::Call& call : m_seam->Calls()) {
            if (call.kind == kind) texts.push_back(call.text);
        }
        return texts;
    }

    std::shared_ptr<ado::Connection> m_connection;
};
INSTANTIATE_TEST_SUITE_P(Drivers, AdoRecordset, AllDrivers(), DriverName);

TEST_P(AdoRecordset, AnAddedRecordIsEmptyUntilSetAndCurrentWhenStored) {
    Add("first");
    const auto recordset = Open(m_connection, "select * from Customer");
    EXPECT_EQ(recordset->Fields("Name")->Value(), Variant("first"));
    recordset->AddNew();
    for (std::int32_t i = 0; i < recordset->FieldCount(); ++i) {
        EXPECT_TRUE(recordset->Fields(i)->Value().IsEmpty());
        EXPECT_EQ(recordset->Fields(i)->ActualSize(), 0);
    }
    EXPECT_FALSE(recordset->Eof());
    recordset->Fields("name")->Value("second");
    EXPECT_EQ(recordset->Fields("NAME")->Value(), Variant("second"));
    recordset->Update();
    EXPECT_FALSE(recordset->Eof());
    EXPECT_EQ(recordset->Fields("CustomerID")->Value(), Variant(2));
    EXPECT_EQ(recordset->Fields("City")->Value(), Variant("Ulm"));
    EXPECT_EQ(recordset->Fields("Credit")->Value(), Variant(7));
    EXPECT_EQ(recordset->Fields("Note")->Value(), Variant::Null());
    recordset->MoveNext();
    EXPECT_TRUE(recordset->Eof());
}

TEST_P(AdoRecordset, AKeyThatTheHostSetIsKept) {
    const auto recordset = Open(m_connection, "select * from Customer");
    recordset->AddNew();
    recordset->Fields("CustomerID")->Value(41);
    recordset->Fields("Name")->Value("x");
    recordset->AddNew();  // stores the one before
    EXPECT_TRUE(recordset->Fields("CustomerID")->Value().IsEmpty());
    recordset->Fields("Name")->Value("y");
    recordset->MoveNext();  // stores it as well
    EXPECT_TRUE(recordset->Eof());
    EXPECT_EQ(Scalar(m_connection, "select CustomerID from Customer where Name = 'x'"), Variant(41));
    EXPECT_EQ(Number(m_connection, "select count(*) from Customer where Name = 'y'"), 1);
}

/// What a save does, on a table that has rows already: nothing of them is ever fetched.
TEST_P(AdoRecordset, AddingARecordReadsNoOther) {
    Add("first");
    m_seam->Record();
    const auto recordset = Open(m_connection, "select * from Customer");
    recordset->AddNew();
    recordset->Fields("Name")->Value("second");
    EXPECT_TRUE(recordset->Fields("City")->Value().IsEmpty());
    recordset->Update();
    EXPECT_EQ(recordset->Fields("CustomerID")->Value(), Variant(2));
    recordset->Close();
    EXPECT_THAT(m_seam->Executed(), Each(Not(HasSubstr("select"))));
    EXPECT_THAT(Calls(CallKind::Fetch), Each(testing::AnyOf(HasSubstr("rowid()"), HasSubstr("INSERT INTO"))));
    EXPECT_EQ(m_seam->Executed().size(), AsksForNewKeys(GetParam()) ? 2U : 1U);
    EXPECT_THAT(m_seam->Executed().front(), HasSubstr("INSERT INTO"));
    EXPECT_EQ(m_seam->OpenStatements(), 0);

    m_seam->Record();
    Add("third");
    EXPECT_THAT(Calls(CallKind::Prepare), IsEmpty());
}

TEST_P(AdoRecordset, AnEditSendsWhatDiffers) {
    Add("first");
    const auto recordset = Open(m_connection, "select * from Customer where CustomerID=1");
    m_seam->Record();
    recordset->Fields("Name")->Value("first");
    recordset->Fields("Credit")->Value("7");
    recordset->Update();
    EXPECT_THAT(Calls(CallKind::Prepare), IsEmpty());
    recordset->Fields("Name")->Value("changed");
    recordset->Fields("Credit")->Value(7);
    recordset->Update();
    ASSERT_EQ(Calls(CallKind::Prepare).size(), 1U);
    EXPECT_THAT(Calls(CallKind::Prepare)[0],
                testing::AllOf(testing::ContainsRegex("SET .[Nn]ame. = [?] WHERE"), Not(HasSubstr("redit"))));
    EXPECT_EQ(recordset->Fields("Name")->Value(), Variant("changed"));
    EXPECT_EQ(Scalar(m_connection, "select Name from Customer"), Variant("changed"));
}

TEST_P(AdoRecordset, ACancelledEditLeavesTheRecordAsItWas) {
    Add("first");
    const auto recordset = Open(m_connection, "select * from Customer");
    recordset->Fields("Name")->Value("other");
    recordset->CancelUpdate();
    EXPECT_EQ(recordset->Fields("Name")->Value(), Variant("first"));
    recordset->AddNew();
    recordset->CancelUpdate();
    EXPECT_EQ(recordset->Fields("CustomerID")->Value(), Variant(1));
    EXPECT_EQ(ErrorOf([&] { recordset->CancelUpdate(); }), ado::adErrIllegalOperation);
    EXPECT_EQ(Number(m_connection, "select count(*) from Customer"), 1);
}

TEST_P(AdoRecordset, ClosingWithAPendingEditIsRefusedAndReleasingDropsIt) {
    auto recordset = Open(m_connection, "select * from Customer");
    recordset->AddNew();
    recordset->Fields("Name")->Value("lost");
    const auto name = recordset->Fields("Name");
    EXPECT_EQ(ErrorOf([&] { recordset->Close(); }), ado::adErrIllegalOperation);
    EXPECT_EQ(recordset->State(), ado::adStateOpen);
    recordset.reset();
    EXPECT_EQ(m_seam->OpenStatements(), 0);
    EXPECT_EQ(ErrorOf([&] { name->Value(); }), ado::adErrObjectClosed);
    EXPECT_EQ(Number(m_connection, "select count(*) from Customer"), 0);
}

TEST_P(AdoRecordset, AValueThatIsRefusedStartsNoEdit) {
    Add("first");
    const auto recordset = Open(m_connection, "select * from Customer");
    EXPECT_EQ(ErrorOf([&] { recordset->Fields("Credit")->Value("much"); }), ado::adErrDataConversion);
    recordset->Close();
}

TEST_P(AdoRecordset, WalksItsRowsOnce) {
    for (const char* name : {"a", "b", "c"}) {
        Add(name);
    }
    const auto recordset = Open(m_connection, "select * from Customer order by CustomerID desc");
    std::string names;
    for (; !recordset->Eof(); recordset->MoveNext()) {
        names += automation::ToString(recordset->Fields("Name")->Value());
    }
    EXPECT_EQ(names, "cba");
    EXPECT_EQ(ErrorOf([&] { recordset->MoveNext(); }), ado::adErrNoCurrentRecord);
    EXPECT_EQ(ErrorOf([&] { recordset->Fields("Name")->Value(); }), ado::adErrNoCurrentRecord);
    EXPECT_EQ(ErrorOf([&] { recordset->Fields("Name")->Value("x"); }), ado::adErrNoCurrentRecord);
    recordset->Close();
    EXPECT_EQ(recordset->State(), ado::adStateClosed);
    EXPECT_EQ(ErrorOf([&] { recordset->Eof(); }), ado::adErrObjectClosed);
    EXPECT_EQ(ErrorOf([&] { recordset->Close(); }), ado::adErrObjectClosed);
}

TEST_P(AdoRecordset, WhatCannotBeOpenedIsSaidAtOpen) {
    const struct {
        std::string text;
        std::int32_t number;
        std::string says;
    } cases[] = {
        {"select * from Nowhere", ado::DbENoTable, "Nowhere"},
        {"select Nothing from Customer", ado::DbEStatement, "Nothing"},
        {"select * form Customer", ado::DbEStatement, "form"},
        {"select * from Customer where CustomerID=1; delete from Customer", ado::DbEStatement, "delete"},
        {"select * from Customer where CustomerID=", ado::DbEStatement, "CustomerID="},
        {"", ado::DbEStatement, "empty"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.text);
        const auto error = ErrorOf([&] { Open(m_connection, c.text); });
        EXPECT_EQ(error, c.number);
        EXPECT_THAT(error.description, HasSubstr(c.says));
    }
    const auto unknown = ErrorOf([&] { Open(m_connection, "select * from Customer")->Fields("Nmae"); });
    EXPECT_EQ(unknown, ado::adErrItemNotFound);
    EXPECT_THAT(unknown.description, testing::AllOf(HasSubstr("Nmae"), HasSubstr("Customer")));
}

TEST_P(AdoRecordset, WritesOnlyWhenItsLockAndItsTableAllow) {
    Add("first");
    const auto readOnly = m_platform.targetProvider->CreateRecordset();
    EXPECT_EQ(readOnly->LockType(), ado::adLockReadOnly);
    readOnly->Open("select * from Customer", m_connection);
    EXPECT_EQ(ErrorOf([&] { readOnly->AddNew(); }), ado::adErrFeatureNotAvailable);
    EXPECT_EQ(ErrorOf([&] { readOnly->Fields("Name")->Value("x"); }), ado::adErrFeatureNotAvailable);
    EXPECT_EQ(ErrorOf([&] { readOnly->LockType(ado::adLockOptimistic); }), ado::adErrObjectOpen);
    EXPECT_EQ(ErrorOf([&] { readOnly->Open("select 1", m_connection); }), ado::adErrObjectOpen);
    EXPECT_EQ(readOnly->Fields("Name")->Attributes() & ado::adFldUpdatable, 0);

    const auto computed = Open(m_connection, "select 1 + 1 as Two");
    EXPECT_EQ(automation::ToLong(computed->Fields("Two")->Value()), 2);
    EXPECT_EQ(ErrorOf([&] { computed->AddNew(); }), ado::adErrFeatureNotAvailable);
    const auto partly = Open(m_connection, "select CustomerID, Name, upper(Name) as U from Customer");
    EXPECT_EQ(ErrorOf([&] { partly->Fields("U")->Value("x"); }), ado::adErrFeatureNotAvailable);
}

TEST_P(AdoRecordset, ViolatedConstraintsAreReportedAndTheEditGoesOn) {
    m_connection->Execute("create unique index Names on Customer (Name)");
    Add("taken");
    const auto recordset = Open(m_connection, "select * from Customer");
    recordset->AddNew();
    const auto missing = ErrorOf([&] { recordset->Update(); });
    EXPECT_EQ(missing, ado::DbEConstraint);
    EXPECT_TRUE(automation::ContainsIgnoreCase(missing.description, "Name")) << missing.description;
    recordset->Fields("Name")->Value("taken");
    EXPECT_EQ(ErrorOf([&] { recordset->Update(); }), ado::DbEConstraint);
    recordset->Fields("Name")->Value("free");
    recordset->Update();
    EXPECT_EQ(recordset->Fields("Name")->Value(), Variant("free"));

    recordset->Fields("Credit")->Value(7);  // as it is stored, and left out of the statement
    recordset->Fields("Name")->Value("taken");
    EXPECT_EQ(ErrorOf([&] { recordset->Update(); }), ado::DbEConstraint);
    recordset->Fields("Credit")->Value(8);
    recordset->Fields("Name")->Value("free");
    recordset->Update();
    EXPECT_EQ(Number(m_connection, "select Credit from Customer where Name = 'free'"), 8);
}

TEST_P(AdoRecordset, ARecordThatIsGoneCannotBeUpdated) {
    Add("first");
    const auto recordset = Open(m_connection, "select * from Customer");
    recordset->Fields("Name")->Value("mine");
    m_connection->Execute("delete from Customer");
    EXPECT_EQ(ErrorOf([&] { recordset->Update(); }), ado::DbEConcurrencyViolation);
}

/// Another client wrote the same meanwhile, and a column rounds what it is given to what it held.
TEST_P(AdoRecordset, AnUpdateThatChangesNothingOnTheServerIsStored) {
    Add("first");
    Run(m_connection, IsServer(GetParam()) ? "alter table Customer add Day timestamp(0) null default null"
                                           : "alter table Customer add Day datetime");
    m_connection->Execute("update Customer set Day = '2024-02-29 10:00:00'");
    m_connection.reset();
    for (const char* settings : {"", ";OPTION=8", ";OPTION=8;Option=0"}) {
        if (*settings != '\0' && GetParam() != Driver::MariaDb) continue;
        const auto connection = Connect(ConnectionString() + settings);
        const auto recordset = Open(connection, "select * from Customer");
        recordset->Fields("Name")->Value("same");
        connection->Execute("update Customer set Name = 'same'");
        EXPECT_EQ(ErrorOf([&] { recordset->Update(); }), 0);
        recordset->Fields("Day")->Value("2024-02-29 10:00:00.250");
        EXPECT_EQ(ErrorOf([&] { recordset->Update(); }), 0);
        connection->Execute("update Customer set Name = 'first', Day = '2024-02-29 10:00:00'");
    }
}

}  // namespace
}  // namespace korvex::tests
