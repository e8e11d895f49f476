#pragma once

#include "atdl/Kinds.h"
#include "atdl/XmlTree.h"

#include <QString>

/// What a parameter's column may be called.
namespace atdl {

/// A title or an identifier that means something by itself, and can be no broker's.
bool isReserved(const QString& text);
/// Read by the desk's own rules, whatever it means to the broker.
bool isGuarded(const QString& text);

/// The title under which the desk knows what a standard field means, so that its own rules see it; empty:
/// none.
QString knownTitle(int tag, Kind kind);
/// The label of a control, without a colon at the end; empty without a control.
QString labelOf(const XmlElement* control);

} // namespace atdl
