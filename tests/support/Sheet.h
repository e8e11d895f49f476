#pragma once

#include <QList>
#include <QMap>
#include <QString>
#include <QStringList>

/// An import file in the making: a header of column titles, and rows that start as good ones.
///
///     Sheet sheet = Sheet::ordinary();
///     sheet.add();                                   // a good row
///     sheet.add({{"委托数量"_s, "99"_s}});           // a good row but for one cell
///     importRows(sheet.rows());
class Sheet {
public:
    explicit Sheet(const QStringList& header) : mHeader(header) {}
    /// The columns of small_market::ordinaryDocument().
    static Sheet ordinary();
    /// The columns of small_market::pairedDocument(): two legs a row.
    static Sheet paired();
    /// The columns of small_market::amountDocument().
    static Sheet amount();
    /// The columns of small_market::sealingDocument().
    static Sheet sealing();

    /// A good row with some cells of its own, by title.
    Sheet& add(const QMap<QString, QString>& cells = {});
    /// A row as it stands.
    Sheet& addRow(const QStringList& row);
    /// Gives a column another title.
    Sheet& rename(const QString& title, const QString& other);
    /// Takes a column out of the header and every row.
    Sheet& drop(const QString& title);
    /// Puts the columns into another order: the k-th one was at `order[k]`.
    Sheet& reorder(const QList<int>& order);

    const QStringList& header() const { return mHeader; }
    /// Header and rows.
    QList<QStringList> rows() const { return QList<QStringList>{mHeader} + mRows; }

private:
    QStringList mHeader;
    QMap<QString, QString> mGoodCells; ///< where they differ from an ordinary row
    QList<QStringList> mRows;
};
