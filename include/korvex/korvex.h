#pragma once

/// The whole public interface of the library in one include.

#include "automation/collection.h"
#include "automation/convert.h"
#include "automation/dispatch.h"
#include "automation/error.h"
#include "automation/variant.h"
#include "objects/find.h"
#include "objects/json.h"
#include "objects/load_definition.h"
#include "persistence/db_results.h"
#include "persistence/qor_object.h"
#include "platform/platform.h"
#include "surface/cls_create_db.h"
#include "surface/cls_crud.h"
#include "surface/cls_field.h"
#include "surface/create_object.h"
#include "surface/definition_changes.h"
#include "surface/target_tables.h"
