#pragma once

#include "platform/ado.h"
#include "platform/native/sql/seam.h"

#include <memory>

namespace korvex::native::ado_engine {

/// The target-database engine of the native build. Every engine call of its connections passes `seam`, if
/// any.
std::shared_ptr<ado::Provider> CreateAdoProvider(std::shared_ptr<sql::Seam> seam);

}  // namespace korvex::native::ado_engine
