// The identifiers that the header of the type library declares are defined in this source.
#include <initguid.h>
#include <korvex_com.h>
// The one above changes what the headers below declare.
#include "surface/com/class_table.h"

namespace korvex::com {

std::span<const CreatableClass> CreatableClasses() noexcept {
    static const CreatableClass classes[] = {
        {__uuidof(::clsCreateDb), "Korvex.clsCreateDb"},
        {__uuidof(::clsField), "Korvex.clsField"},
        {__uuidof(::clsCRUD), "Korvex.clsCRUD"},
    };
    return classes;
}

const CreatableClass* FindClass(REFCLSID id) noexcept {
    for (const CreatableClass& creatable : CreatableClasses()) {
        if (creatable.id == id) return &creatable;
    }
    return nullptr;
}

}  // namespace korvex::com
