#pragma once

#include "automation/com/com_ptr.h"
#include "automation/dispatch.h"

#include <functional>
#include <unknwn.h>

namespace korvex::com {

/// A factory of what `create` makes, which lives as long as hosts hold it; the first one pins the module. An
/// error of `create` reaches the host as any other.
ComPtr<IClassFactory> MakeClassFactory(std::function<automation::ObjectRef()> create);

}  // namespace korvex::com
