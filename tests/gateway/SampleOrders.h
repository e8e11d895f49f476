#pragma once

#include "gateway/messages/Message.h"
#include "gateway/messages/Order.h"
#include "gateway/profile/Profile.h"

#include <QDateTime>
#include <QString>

/// Orders and a broker's profile as the tests of the gateway use them.
namespace sample {

const char* profileJson();
gateway::Profile profile();
QDateTime now(); ///< 2026-11-23 01:30:00 UTC

/// Row 7 of a batch: AITWAP, buy 1000 of 600000.SH at 11.52 at most.
gateway::Order single();
/// Row 8: AILOCK, buy 2000 of 600000.SH, sell 1000 of 000001.SZ.
gateway::Order pair();

/// "35=D|11=…|…", groups as "957={958=a|…}{…}".
QString print(const gateway::Message& message);

} // namespace sample
