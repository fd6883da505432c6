#include "surface/com/dual_shells.h"

namespace korvex::com {

namespace {

class PlainShell final : public Shell<IDispatch> {
  public:
    using Shell::Shell;
};

template <class C, class S>
ComPtr<IDispatch> TryWrap(const std::shared_ptr<automation::TableObject>& object) {
    auto typed = std::dynamic_pointer_cast<C>(object);
    return typed ? ComPtr<IDispatch>(new S(std::move(typed))) : ComPtr<IDispatch>();
}

}  // namespace

ComPtr<IDispatch> WrapObject(std::shared_ptr<automation::TableObject> object) {
    if (auto shell = TryWrap<clsCreateDb, CreateDbShell>(object)) return shell;
    if (auto shell = TryWrap<clsCRUD, CrudShell>(object)) return shell;
    if (auto shell = TryWrap<clsField, FieldShell>(object)) return shell;
    if (auto shell = TryWrap<QORObject, DataObjectShell>(object)) return shell;
    if (auto shell = TryWrap<automation::Collection, CollectionShell>(object)) return shell;
    return ComPtr<IDispatch>(new PlainShell(std::move(object)));
}

}  // namespace korvex::com
