#pragma once

class QApplication;
class QString;

/// What the whole program needs before its first window: style, font, names, texts of Qt's own dialogs.
namespace desk_application {

void prepare(QApplication& application);
/// Says in a window of its own why the desk does not open: who starts it from a menu sees no other place.
void tellFault(const QString& error);

} // namespace desk_application
