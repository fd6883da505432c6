#include "surface/create_object.h"

#include "automation/error.h"
#include "automation/text.h"
#include "surface/cls_create_db.h"
#include "surface/cls_crud.h"
#include "surface/cls_field.h"

#include <memory>
#include <string>

namespace korvex {

namespace {

struct Creatable {
    std::string_view progId;
    automation::ObjectRef (*create)();
};

template <class T>
automation::ObjectRef Create() {
    return std::make_shared<T>();
}

constexpr Creatable Creatables[] = {
    {"Korvex.clsCreateDb", Create<clsCreateDb>},
    {"Korvex.clsCRUD", Create<clsCRUD>},
    {"Korvex.clsField", Create<clsField>},
};

}  // namespace

automation::ObjectRef CreateObject(std::string_view progId) {
    for (const Creatable& creatable : Creatables) {
        if (automation::EqualsIgnoreCase(creatable.progId, progId)) return creatable.create();
    }
    throw automation::Error(automation::CannotCreateObject,
                            "No class is registered as '" + std::string(progId) + "'.");
}

}  // namespace korvex
