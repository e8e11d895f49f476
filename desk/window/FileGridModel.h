#pragma once

#include "desk/check/Problem.h"
#include "desk/working_copy/WorkingCopy.h"

#include <QAbstractTableModel>
#include <QColor>
#include <QHash>

#include <functional>

/// A working copy as a sheet: the header is its first row, the vertical header counts the lines of the file,
/// and what is wrong with a cell stands at the cell, as a colour, a sign and a reason.
class FileGridModel : public QAbstractTableModel {
    Q_OBJECT

public:
    /// A colour of the skin by its name.
    using Colours = std::function<QColor(const QString& name)>;

    explicit FileGridModel(const Colours& colours, QObject* parent = nullptr);

    const working_copy::WorkingCopy& copy() const { return mCopy; }
    void setCopy(const working_copy::WorkingCopy& copy);
    /// Whether cells may be changed.
    void setEditable(bool editable);
    bool isEditable() const { return mIsEditable; }

    /// Those of the file, and of the batch where the line is known.
    void setProblems(const Problems& problems);
    /// What is wrong at a cell, and with its whole row; a line each, empty for nothing.
    QString reasonsAt(const QModelIndex& index) const;

    /// Does something with the copy, and tells where it changed something.
    bool edit(const std::function<bool(working_copy::WorkingCopy&)>& change);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;

signals:
    void edited();

private:
    struct Mark {
        table::Severity severity = table::Severity::Notice;
        QStringList reasons;
    };
    using Marks = QHash<table::Cell, Mark>;

    const Mark* markAt(int row, int column) const;
    QString lineText(const working_copy::Row& row) const;
    QString spoken(const QModelIndex& index) const;
    QVariant background(const QModelIndex& index) const;
    void tellChanged();

    Colours mColours;
    working_copy::WorkingCopy mCopy;
    Marks mMarks; ///< column -1: of the whole row
    bool mIsEditable = true;
};
