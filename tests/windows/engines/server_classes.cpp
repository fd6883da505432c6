#include "tests/windows/engines/server_classes.h"

#include "automation/com/class_registration.h"
#include "tests/windows/engines/ado_parts.h"
#include "tests/windows/engines/dao_objects.h"
#include "tests/windows/engines/data_objects.h"

namespace korvex::test {

namespace {

template <class T>
std::shared_ptr<automation::TableObject> Create() {
    return std::make_shared<T>();
}

constexpr ServerClass classes[] = {
    {{0x3f0b3a4e, 0x5d0c, 0x4c0e, {0x9a, 0x2f, 0x1d, 0x5e, 0x6b, 0x77, 0x01, 0xa1}},
     "DAO.DBEngine.36",
     Create<DBEngineObject>},
    {{0x3f0b3a4e, 0x5d0c, 0x4c0e, {0x9a, 0x2f, 0x1d, 0x5e, 0x6b, 0x77, 0x01, 0xa2}},
     "ADODB.Connection",
     CreateAdoConnection},
    {{0x3f0b3a4e, 0x5d0c, 0x4c0e, {0x9a, 0x2f, 0x1d, 0x5e, 0x6b, 0x77, 0x01, 0xa3}},
     "ADODB.Recordset",
     CreateAdoRecordset},
    {{0x3f0b3a4e, 0x5d0c, 0x4c0e, {0x9a, 0x2f, 0x1d, 0x5e, 0x6b, 0x77, 0x01, 0xa4}},
     "KorvexTest.DataObjects",
     Create<DataObjects>},
    {{0x3f0b3a4e, 0x5d0c, 0x4c0e, {0x9a, 0x2f, 0x1d, 0x5e, 0x6b, 0x77, 0x01, 0xa5}},
     "QOROBJLib.QORObject",
     CreateDataObject},
};

}  // namespace

std::span<const ServerClass> ServerClasses() noexcept { return classes; }

HRESULT RegisterServer() {
    com::Registration registration;
    for (const ServerClass& entry : classes)
        registration.AddClass(entry.progId, entry.id);
    if (SUCCEEDED(registration.Result())) registration.Keep();
    return registration.Result();
}

HRESULT UnregisterServer() {
    for (const ServerClass& entry : classes)
        com::DeleteClass(entry.progId, entry.id);
    return S_OK;
}

}  // namespace korvex::test
