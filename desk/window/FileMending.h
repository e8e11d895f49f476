#pragma once

#include "desk/check/ImportedFile.h"

#include <QObject>
#include <QTimer>

class DeskPrompts;
class DialogFrame;
class EmbeddedHost;
class FileGrid;
class ProblemsPanel;

/// From an edit in the file's grid to the dialog's table: what is wrong now is told at once, by reading the
/// rows without the dialog; the dialog imports the mended table when the user pauses, since each of its
/// imports waits for quotes. Until then its batch cannot be confirmed.
class FileMending : public QObject {
    Q_OBJECT

public:
    /// Milliseconds without an edit after which the dialog imports again.
    static constexpr int PauseMs = 700;

    FileMending(EmbeddedHost& host, DeskPrompts& prompts, DialogFrame& frame, FileGrid& grid,
                ProblemsPanel& problems, QObject* parent = nullptr);

    /// The file whose copy the grid holds.
    void setFile(const ImportedFile& file);
    /// The dialog's running import is one of a mended table.
    bool isImporting() const { return mIsImporting; }
    /// Edits that the dialog has not imported yet.
    bool isBehind() const { return mPause.isActive(); }
    /// Imports now what it would import after the pause.
    void catchUp();
    /// Reads the rows of the copy as the dialog would, and tells what is wrong with them and the file.
    void tellProblems();

signals:
    /// The dialog holds what was mended.
    void caughtUp();

private:
    void followEdit();
    void importWhenIdle();

    EmbeddedHost& mHost;
    DeskPrompts& mPrompts;
    DialogFrame& mFrame;
    FileGrid& mGrid;
    ProblemsPanel& mProblems;
    QString mPath;
    QTimer mPause;
    bool mIsImporting = false;
};
