#pragma once

#include "desk/check/Problem.h"
#include "desk/working_copy/WorkingCopy.h"

#include <QWidget>

class EmbeddedHost;
class FileGridModel;
class QLabel;
class QPushButton;
class QTableView;

/// The imported file as a sheet that is mended in place: cells are typed over, rows left out and taken in
/// again, cells pasted, a value replaced in a whole column, all undone and redone.
class FileGrid : public QWidget {
    Q_OBJECT

public:
    explicit FileGrid(EmbeddedHost& host, QWidget* parent = nullptr);

    QTableView* view() const { return mView; }
    FileGridModel* model() const { return mModel; }
    const working_copy::WorkingCopy& copy() const;

    /// Another file, or none.
    void begin(const working_copy::WorkingCopy& copy);
    void setProblems(const Problems& problems);
    /// Whether cells may be changed: not while there is no dialog that would import them.
    void setEditable(bool editable);
    /// A cell editor is open: what is typed is not in the copy yet.
    bool isTyping() const;
    /// Makes the cell the current one; column -1: the first one of the row. False where there is no such
    /// line.
    bool showCell(int line, int column);

public slots:
    void undo();
    void redo();
    void copySelection();
    /// The cells of the clipboard from the current one on.
    void paste();
    void clearCells();
    /// Of the selected rows: leaves them out, or takes them in where all are left out.
    void toggleRows();
    void leaveOut(const QList<int>& lines);
    /// Asks for a value of the current column and what to put in its place.
    void replaceInColumn();

signals:
    void edited();
    void said(const QString& text);

private:
    void makeTools(class QHBoxLayout* row);
    QPushButton* makeButton(const QString& text, const char* name, const QString& tip);
    void sayCell();
    void showState();
    int currentLine() const;
    QList<int> selectedLines() const;
    QPair<table::Cell, table::Cell> selectedArea() const;

    FileGridModel* mModel;
    QTableView* mView;
    QLabel* mState;
    QList<QPushButton*> mEditing; ///< that change something
    QPushButton* mUndo = nullptr;
    QPushButton* mRedo = nullptr;
};
