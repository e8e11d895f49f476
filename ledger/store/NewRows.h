#pragma once

#include "ledger/values/Decimal.h"

#include <QByteArray>
#include <QStringList>
#include <QVector>

#include <type_traits>

namespace ledger {

class Statements;
class Store;

/// Rows on their way into a table: cell behind cell in UTF-8, in one piece of memory. A column makes of the
/// text what its type is.
///
///     NewRows legs(QStringLiteral("instance_leg"), {QStringLiteral("row_no"), QStringLiteral("symbol")});
///     legs << 1 << QStringLiteral("600000.SH");
class NewRows {
public:
    NewRows(const QString& table, const QStringList& columns) : mTable(table), mColumns(columns) {}

    NewRows& operator<<(const QString& text);
    NewRows& operator<<(const QByteArray& utf8);
    NewRows& operator<<(const Decimal& number) { return *this << number.text(); }
    template <typename Whole, typename = std::enable_if_t<std::is_integral_v<Whole>>>
    NewRows& operator<<(Whole number)
    {
        return *this << QByteArray::number(qlonglong(number));
    }

    const QString& table() const { return mTable; }
    const QStringList& columns() const { return mColumns; }
    int count() const { return mEnds.size() / mColumns.size(); }
    int bytes() const { return mUsed; }
    /// The next rows go into the same table.
    void clear();

    struct Cell {
        const char* text;
        int size;
    };
    Cell cell(int row, int column) const;

private:
    char* roomFor(int bytes);
    void end(const char* cell);

    QString mTable;
    QStringList mColumns;
    QByteArray mTexts; ///< used as far as mUsed
    int mUsed = 0;
    QVector<int> mEnds; ///< behind each cell
};

/// Inserts them, unless an earlier statement failed.
void insertRows(Statements& statements, Store& store, const NewRows& rows);

} // namespace ledger
