#include "tests/catalogue/SampleTable.h"

#include <QFile>
#include <QStringList>

namespace sample_table {

namespace {

/// The cells of every table row whose first cell names a file.
QList<QStringList> fileRows()
{
    QFile readme(QStringLiteral(ALGO_PROJECT_DIR "/samples/README.md"));
    QList<QStringList> rows;
    if (!readme.open(QIODevice::ReadOnly)) {
        return rows;
    }
    const QStringList lines = QString::fromUtf8(readme.readAll()).split(QLatin1Char('\n'));
    for (const QString& line : lines) {
        if (!line.startsWith(QLatin1String("| `"))) {
            continue;
        }
        QStringList cells;
        const QStringList parts = line.split(QLatin1Char('|')).mid(1);
        for (const QString& part : parts) {
            cells.append(part.trimmed());
        }
        cells.first().remove(QLatin1Char('`'));
        rows.append(cells);
    }
    return rows;
}

QList<Sample> samples(bool faulty)
{
    const QString atConfirmation = QStringLiteral("确定");
    QList<Sample> result;
    for (const QStringList& row : fileRows()) {
        if (row.first().startsWith(QLatin1String("faulty/")) == faulty) {
            result.append({row.value(0), row.value(1), row.value(2), row.value(faulty ? 4 : 3),
                           faulty && row.value(3) == atConfirmation});
        }
    }
    return result;
}

} // namespace

QList<Sample> goodSamples()
{
    return samples(false);
}

QList<Sample> faultySamples()
{
    return samples(true);
}

} // namespace sample_table
