#pragma once

// The functions of ODBC by their own names: plain ones take narrow texts, those with a W wide ones, whatever
// the build takes texts for elsewhere.
#ifndef SQL_NOUNICODEMAP
#define SQL_NOUNICODEMAP
#endif

#include <sql.h>
#include <sqlext.h>
#include <sqlucode.h>
