#include "desk/ledger/LedgerExport.h"

#include <QLocale>

namespace ledger {

namespace {

const QString ByteOrderMark = QString(QChar(QChar::ByteOrderMark));

/// A spreadsheet runs a text that begins so as a formula.
bool looksLikeFormula(const QString& text)
{
    static const QString starts = QStringLiteral("=+-@\t\r\n");
    bool isNumber = false;
    text.toDouble(&isNumber);
    return !text.isEmpty() && starts.contains(text.front()) && !isNumber;
}

QString cellText(const QString& text)
{
    QString cell = looksLikeFormula(text) ? QLatin1Char('\'') + text : text;
    const bool needsQuotes = cell.contains(QLatin1Char(',')) || cell.contains(QLatin1Char('"')) ||
                             cell.contains(QLatin1Char('\n')) || cell.contains(QLatin1Char('\r'));
    return needsQuotes ? QLatin1Char('"') + cell.replace(QLatin1String("\""), QLatin1String("\"\"")) +
                             QLatin1Char('"')
                       : cell;
}

QString line(const QStringList& cells)
{
    QStringList written;
    for (const QString& cell : cells) {
        written.append(cellText(cell));
    }
    return written.join(QLatin1Char(',')) + QLatin1String("\r\n");
}

QString number(double value)
{
    return QString::number(value, 'f', QLocale::FloatingPointShortest);
}

QString time(const QDateTime& value)
{
    return value.toLocalTime().toString(QStringLiteral("yyyy-MM-dd HH:mm:ss"));
}

/// One cell for all legs.
template <typename Text> QString ofLegs(const Instance& instance, Text textOf)
{
    QStringList texts;
    for (const Leg& leg : instance.legs) {
        texts.append(textOf(leg));
    }
    return texts.join(QLatin1Char('/'));
}

} // namespace

QByteArray toCsv(const QStringList& header, const QList<QStringList>& rows)
{
    QString text = ByteOrderMark + line(header);
    for (const QStringList& row : rows) {
        text += line(row);
    }
    return text.toUtf8();
}

QByteArray toCsv(const QList<Batch>& batches)
{
    QList<QStringList> rows;
    for (const Batch& batch : batches) {
        rows.append({QString::number(batch.number), batch.fileName, batch.fileSha256, batch.account,
                     batch.strategy, QString::number(batch.rowCount), number(batch.expectedBuy),
                     number(batch.expectedSell), time(batch.createdAt), batch.createdBy,
                     shownName(batch.state)});
    }
    return toCsv({QStringLiteral("批次"), QStringLiteral("文件名"), QStringLiteral("SHA-256"),
                  QStringLiteral("交易账号"), QStringLiteral("算法"), QStringLiteral("行数"),
                  QStringLiteral("预估买入金额"), QStringLiteral("预估卖出金额"), QStringLiteral("创建时间"),
                  QStringLiteral("创建人"), QStringLiteral("状态")},
                 rows);
}

QByteArray toCsv(const QList<Instance>& instances)
{
    QList<QStringList> rows;
    for (const Instance& instance : instances) {
        rows.append({instance.id.text(), QString::number(instance.id.batch), instance.account,
                     instance.strategy, ofLegs(instance, [](const Leg& leg) { return leg.symbol; }),
                     ofLegs(instance, [](const Leg& leg) { return leg.direction; }),
                     ofLegs(instance, [](const Leg& leg) { return number(leg.quantity); }),
                     ofLegs(instance, [](const Leg& leg) { return number(leg.limitPrice); }),
                     ofLegs(instance, [](const Leg& leg) { return number(leg.amount); }),
                     shownName(instance.state), time(instance.changedAt)});
    }
    return toCsv({QStringLiteral("实例"), QStringLiteral("批次"), QStringLiteral("交易账号"),
                  QStringLiteral("算法"), QStringLiteral("证券代码"), QStringLiteral("交易方向"),
                  QStringLiteral("委托数量"), QStringLiteral("委托限价"), QStringLiteral("金额"),
                  QStringLiteral("状态"), QStringLiteral("状态时间")},
                 rows);
}

} // namespace ledger
