#pragma once

class QString;
class QWidget;

/// Asks whether a batch that was not created may be thrown away; the harmless answer is the default.
bool isDiscardWanted(const QString& what, QWidget* parent);
