#pragma once

#include "embedded_host/reference_data/Calendar.h"
#include "table/Outcome.h"

/// Reads calendar.csv of a reference data folder (docs/reference-data.md lists its columns); no such file: a
/// calendar that knows no day. The error is "FILE:LINE: what is wrong".
Outcome<Calendar> readCalendar(const QString& folder);
