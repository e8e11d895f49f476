#include "embedded_host/reference_data/CalendarFile.h"

#include "embedded_host/reference_data/CsvTable.h"
#include "embedded_host/reference_data/ReferenceFile.h"
#include "embedded_host/reference_data/ReferenceFolder.h"
#include "words/Words.h"

namespace {

using Row = Calendar::Row;

constexpr int MostRows = 5000;
constexpr int MostSessions = 8;   ///< of a day
constexpr int LongestSpan = 3660; ///< days that one row covers
constexpr qint64 MostBytes = 1024 * 1024;

QString notDate(const QString& column, const QString& cell)
{
    return Words::tr("%1 应为 yyyy-MM-dd 的日期：%2").arg(column, cell);
}

QString notSessions(const QString& cell)
{
    return Words::tr("sessions 应为 HH:mm-HH:mm，多段以竖线分隔，至多 %1 段：%2").arg(MostSessions).arg(cell);
}

ReferenceColumn<Row> textColumn(const char* name, QString Row::*field, ReferenceColumn<Row>::Kind kind)
{
    return {QString::fromLatin1(name),
            [field](Row& row, const QString& cell) {
                row.*field = cell.trimmed();
                return QString();
            },
            nullptr, kind};
}

ReferenceColumn<Row> dateColumn(const char* name, QDate Row::*field, ReferenceColumn<Row>::Kind kind)
{
    const QString column = QString::fromLatin1(name);
    return {column,
            [=](Row& row, const QString& cell) {
                row.*field = QDate::fromString(cell.trimmed(), QStringLiteral("yyyy-MM-dd"));
                return (row.*field).isValid() ? QString() : notDate(column, cell);
            },
            nullptr, kind};
}

ReferenceColumn<Row> flagColumn(const char* name, bool Row::*field)
{
    const QString column = QString::fromLatin1(name);
    return {column,
            [=](Row& row, const QString& cell) {
                row.*field = cell == QLatin1String("1");
                const bool isFlag = row.*field || cell == QLatin1String("0");
                return isFlag ? QString() : reference_faults::notFlag(column, cell);
            },
            nullptr};
}

QString takeSessions(Row& row, const QString& cell)
{
    const QStringList parts = cell.split(QLatin1Char('|'));
    for (const QString& part : parts) {
        const QStringList ends = part.split(QLatin1Char('-'));
        const auto time = [&](int end) {
            return QTime::fromString(ends.value(end).trimmed(), QStringLiteral("HH:mm"));
        };
        if (ends.size() != 2 || !time(0).isValid() || !time(1).isValid() || time(0) == time(1)) {
            return notSessions(cell);
        }
        row.sessions.append({time(0), time(1)});
    }
    return parts.size() > MostSessions ? notSessions(cell) : QString();
}

const ReferenceTable<Row>& calendarTable()
{
    using Column = ReferenceColumn<Row>;
    static const ReferenceTable<Row> table{
        QStringLiteral("calendar"),
        nullptr,
        {textColumn("exchange", &Row::exchange, Column::Key), dateColumn("from", &Row::from, Column::Key),
         dateColumn("to", &Row::to, Column::Key), Column{QStringLiteral("sessions"), takeSessions, nullptr},
         flagColumn("bondRepo", &Row::bondRepo), flagColumn("invented", &Row::invented),
         textColumn("note", &Row::note, Column::Ordinary)},
        ReferenceTable<Row>::Optional,
        ReferenceTable<Row>::Repeatable};
    return table;
}

/// What no single cell tells.
QString faultOf(const QList<Row>& rows, const QString& path)
{
    if (rows.size() > MostRows) {
        return reference_faults::at(path, 1, Words::tr("超过 %1 行").arg(MostRows));
    }
    for (const Row& row : rows) {
        if (row.to < row.from || row.from.daysTo(row.to) > LongestSpan) {
            return reference_faults::at(path, 1,
                                        Words::tr("%1 至 %2 的天数应在 1 到 %3 之间")
                                            .arg(row.from.toString(Qt::ISODate), row.to.toString(Qt::ISODate))
                                            .arg(LongestSpan));
        }
    }
    return QString();
}

} // namespace

Outcome<Calendar> readCalendar(const QString& folder)
{
    const QString path = folder + QLatin1Char('/') + calendarTable().fileName();
    if (!isReferenceFileThere(path)) {
        return {};
    }
    const Outcome<QByteArray> file = readReferenceFile(path, MostBytes);
    QList<Row> rows;
    QString error = file.error;
    if (!file.ok() || !CsvTable(calendarTable(), path).read(file.value, rows, error)) {
        return {{}, error};
    }
    error = faultOf(rows, path);
    return error.isEmpty() ? Outcome<Calendar>{Calendar(rows), {}} : Outcome<Calendar>{{}, error};
}
