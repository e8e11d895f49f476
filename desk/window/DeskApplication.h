#pragma once

#include "words/Language.h"

class QString;

/// What the whole program needs before its first window: language, style, font, names.
namespace desk_application {

void prepare(words::Language language = words::Language::Chinese);
/// Says in a window of its own why the desk does not open: who starts it from a menu sees no other place.
void tellFault(const QString& error);

} // namespace desk_application
