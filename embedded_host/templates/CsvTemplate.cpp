#include "embedded_host/templates/TemplateFormats.h"

namespace template_files {

namespace {

QString quoted(QString cell)
{
    const bool plain = !cell.contains(QLatin1Char(',')) && !cell.contains(QLatin1Char('"')) &&
                       !cell.contains(QLatin1Char('\n')) && !cell.contains(QLatin1Char('\r'));
    return plain
               ? cell
               : QLatin1Char('"') + cell.replace(QLatin1Char('"'), QLatin1String("\"\"")) + QLatin1Char('"');
}

} // namespace

QByteArray csvBytes(const TemplateSheet& sheet)
{
    QByteArray bytes("\xEF\xBB\xBF");
    const QList<QStringList> rows = sheet.rows();
    for (const QStringList& row : rows) {
        QStringList cells;
        for (const QString& cell : row) {
            cells.append(quoted(cell));
        }
        bytes += cells.join(QLatin1Char(',')).toUtf8() + "\r\n";
    }
    return bytes;
}

} // namespace template_files
