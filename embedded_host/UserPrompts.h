#pragma once

#include <QString>

class QWidget;
class ZelMessageBox;

/// Every question that the host puts to the person at the desk. The desk shows real dialogs; the headless
/// runner and the tests answer in their place.
class UserPrompts {
public:
    virtual ~UserPrompts() = default;

    /// The file to open; empty when cancelled. `filter` is a file dialog's name filter.
    virtual QString chooseOpenFile(QWidget* parent, const QString& title, const QString& directory,
                                   const QString& filter) = 0;
    /// The file to write; empty when cancelled. Whoever asks may take an existing file as meant to be
    /// replaced, but only under exactly the name that comes back.
    virtual QString chooseSaveFile(QWidget* parent, const QString& title, const QString& suggestedName,
                                   const QString& filter) = 0;
    /// Called in place of showing the box, which has its final size and position; returns what exec()
    /// returns.
    virtual int answerMessageBox(ZelMessageBox& box) = 0;
};
