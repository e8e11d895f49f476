#include "desk/window/CsvText.h"

#include <QSaveFile>

namespace csv_text {

namespace {

QString quotedWhereNeeded(QString cell)
{
    const bool needed = cell.contains(QLatin1Char('"')) || cell.contains(QLatin1Char(',')) ||
                        cell.contains(QLatin1Char('\n')) || cell.contains(QLatin1Char('\r'));
    if (!needed) {
        return cell;
    }
    cell.replace(QLatin1Char('"'), QStringLiteral("\"\""));
    return QLatin1Char('"') + cell + QLatin1Char('"');
}

} // namespace

QByteArray encoded(const QList<QStringList>& rows)
{
    QString text(QChar::ByteOrderMark);
    for (const QStringList& row : rows) {
        QStringList cells;
        cells.reserve(row.size());
        for (const QString& cell : row) {
            cells.append(quotedWhereNeeded(cell));
        }
        text += cells.join(QLatin1Char(',')) + QStringLiteral("\r\n");
    }
    return text.toUtf8();
}

QString save(const QString& path, const QList<QStringList>& rows)
{
    QSaveFile file(path);
    const QByteArray bytes = encoded(rows);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.commit()) {
        return QStringLiteral("无法写入文件“%1”：%2").arg(path, file.errorString());
    }
    return {};
}

} // namespace csv_text
