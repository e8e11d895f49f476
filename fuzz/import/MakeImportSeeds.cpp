#include "fuzz/import/SeedHead.h"
#include "tests/support/Sheet.h"
#include "tests/support/SmallMarket.h"

#include <QDir>
#include <QFile>

#include <cstdio>

// Writes a small, sound csv file for each strategy of the small market, once for a cash and once for a credit
// account: fuzz_import_seeds DIR.

namespace {

Sheet sheetOf(const QString& strategy)
{
    Sheet sheet = strategy == QLatin1String("AILOCK") || strategy == QLatin1String("AIPAIR") ? Sheet::paired()
                  : strategy == QLatin1String("AITWAP7") || strategy == QLatin1String("AMOUNT")
                      ? Sheet::amount()
                  : strategy == QLatin1String("PursueHighLimit") ? Sheet::sealing()
                                                                 : Sheet::ordinary();
    return sheet.add().add({{QStringLiteral("证券代码"), QStringLiteral("1")}});
}

QByteArray csv(const Sheet& sheet)
{
    QString text;
    for (const QStringList& row : sheet.rows()) {
        text += row.join(QLatin1Char(',')) + QLatin1Char('\n');
    }
    return text.toUtf8();
}

bool write(const QDir& folder, int head, const Sheet& sheet)
{
    QFile file(folder.filePath(QStringLiteral("seed%1").arg(head)));
    const QByteArray bytes = static_cast<char>(head) + csv(sheet);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
}

bool writeSeeds(const QDir& folder)
{
    constexpr int creditAccount = 2;
    const QList<AesStrategy> strategies = small_market::tables().strategies;
    bool written = strategies.size() == fuzz::Strategies && folder.mkpath(QStringLiteral("."));
    for (int i = 0; written && i < strategies.size(); ++i) {
        const Sheet sheet = sheetOf(strategies.at(i).name());
        written = write(folder, i, sheet) && write(folder, i + creditAccount * fuzz::Strategies, sheet);
    }
    return written;
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 2 || !writeSeeds(QDir(QString::fromLocal8Bit(argv[1]) + QLatin1String("/fuzz_import")))) {
        std::fprintf(stderr, "usage: fuzz_import_seeds DIR\n");
        return 2;
    }
    return 0;
}
