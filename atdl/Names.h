#pragma once

#include <QString>

/// Namespaces of FIXatdl 1.1.
namespace atdl::spaces {

inline const QString Core = QStringLiteral("http://www.fixprotocol.org/FIXatdl-1-1/Core");
inline const QString Validation = QStringLiteral("http://www.fixprotocol.org/FIXatdl-1-1/Validation");
inline const QString Layout = QStringLiteral("http://www.fixprotocol.org/FIXatdl-1-1/Layout");
inline const QString Flow = QStringLiteral("http://www.fixprotocol.org/FIXatdl-1-1/Flow");

} // namespace atdl::spaces
