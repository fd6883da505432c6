#pragma once

/// The whole public interface of the library in one include.

#include "automation/collection.h"
#include "automation/convert.h"
#include "automation/dispatch.h"
#include "automation/error.h"
#include "automation/variant.h"
#include "platform/platform.h"
#include "surface/cls_create_db.h"
#include "surface/cls_field.h"
#include "surface/create_object.h"
#include "surface/db_results.h"
