#pragma once

class QApplication;

/// What the whole program needs before its first window: style, font, names, texts of Qt's own dialogs.
namespace desk_application {

void prepare(QApplication& application);

} // namespace desk_application
