#pragma once

#include "embedded_host/UserPrompts.h"

/// Puts every question to the person at the screen, in dialogs of the desktop.
class ScreenPrompts : public UserPrompts {
public:
    QString chooseOpenFile(QWidget* parent, const QString& title, const QString& directory,
                           const QString& filter) override;
    /// A name that is typed without an ending takes the first one of the chosen filter before the dialog
    /// asks whether an existing file may be replaced.
    QString chooseSaveFile(QWidget* parent, const QString& title, const QString& suggestedName,
                           const QString& filter) override;
    int answerMessageBox(ZelMessageBox& box) override;
};
