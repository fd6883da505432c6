#pragma once

#include "automation/com/com_ptr.h"
#include "surface/com/class_table.h"

namespace korvex::com {

/// A factory that lives as long as hosts hold it.
ComPtr<IClassFactory> MakeClassFactory(const CreatableClass& creatable);

}  // namespace korvex::com
