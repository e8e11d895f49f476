#pragma once

#include <QString>

/// Which product this is, and whose parts are in it, as their licences ask to be named (docs/parts.md).
QString aboutText();
