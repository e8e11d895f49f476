#pragma once

#include <QAbstractTableModel>
#include <QList>
#include <QString>
#include <QVariant>

/// Records under column titles: what every list of the desk shows. Whoever needs to know what a row is about
/// asks for a role; the texts are for people and are never read back.
class ListModel : public QAbstractTableModel {
    Q_OBJECT

public:
    struct Column {
        QString title;
        bool isNumber = false; ///< set to the right
    };

    struct Cell {
        QString text; ///< as shown
        /// As other programs read it, and as it is sorted: no commas between thousands; null: `text`.
        QString plain = {};
        QString tint = {}; ///< name of a colour of the skin; empty: that of any text
    };

    enum Role {
        PlainRole = Qt::UserRole, ///< Cell::plain
        TintRole,                 ///< Cell::tint
        BatchRole,                ///< number of the batch that the row is about
        StateRole,                ///< its state: the number in its enumeration
        ProgressRole,             ///< how much of it is done, 0 to 1; invalid: nothing that could be told
    };

    explicit ListModel(const QList<Column>& columns, QObject* parent = nullptr);

    QStringList titles() const;

    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

signals:
    /// Further rows could not be fetched; a sentence for the user.
    void failed(const QString& error);

protected:
    virtual Cell cell(int row, int column) const = 0;
    /// What a role of the row's own says; invalid: nothing.
    virtual QVariant roleOfRow(int row, int role) const;
    /// Only while the model is reset.
    void setColumns(const QList<Column>& columns) { mColumns = columns; }

private:
    Qt::Alignment alignmentOf(int column) const;

    QList<Column> mColumns;
};
