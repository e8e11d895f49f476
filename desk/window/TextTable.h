#pragma once

#include <QAbstractTableModel>
#include <QList>
#include <QSet>
#include <QStringList>

#include <functional>

/// Rows of texts under column titles, with numbers set to the right: what every list of the desk shows.
class TextTable : public QAbstractTableModel {
    Q_OBJECT

public:
    /// The cell's text with its numbers as other programs read them, without commas between the thousands.
    static constexpr int PlainText = Qt::UserRole;

    /// The colour of a cell's text; invalid: the palette's.
    using Tint = std::function<QColor(int row, int column)>;

    explicit TextTable(const QStringList& columns, QObject* parent = nullptr);

    const QStringList& columns() const { return mColumns; }
    const QList<QStringList>& rows() const { return mRows; }
    /// Replaces the rows. Where their number stays, selection and scroll position do too.
    void setRows(const QList<QStringList>& rows);
    void setTable(const QStringList& columns, const QList<QStringList>& rows);
    void setNumeric(const QSet<int>& columns) { mNumeric = columns; }
    void setTint(Tint tint) { mTint = std::move(tint); }

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    Qt::Alignment alignmentOf(int column) const;

    QStringList mColumns;
    QList<QStringList> mRows;
    QSet<int> mNumeric;
    Tint mTint;
};
