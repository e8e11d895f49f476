#include "tests/support/DialogFixture.h"

#include "host/AlgoConstants.h"

#include <QFile>

namespace {

QString csvCell(QString cell)
{
    return QLatin1Char('"') + cell.replace(QLatin1Char('"'), QStringLiteral("\"\"")) + QLatin1Char('"');
}

} // namespace

void DialogFixture::openHost()
{
    dialog.reset();
    host.reset();
    host = std::make_unique<EmbeddedHost>(ReferenceData(tables), options);
    host->setPrompts(&prompts);
    host->journal().setRecording(true);
}

void DialogFixture::open(const QString& strategy, const QString& account, BatchInsType type)
{
    openHost();
    dialog = std::make_unique<AlgoBatchImportParamSetting>(nullptr, type);
    load(strategy);
    accounts().SetCurTradingAccount(account);
}

void DialogFixture::load(const QString& strategy)
{
    const AesStrategy* known = host->referenceData().strategy(strategy);
    dialog->CreateStrategyInitWidget(known == nullptr ? AesStrategy() : *known);
}

QString DialogFixture::writeFile(const QByteArray& bytes, const QString& name)
{
    const QString path = folder.filePath(name);
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::WriteOnly)) << qPrintable(path);
    file.write(bytes);
    return path;
}

QString DialogFixture::writeCsv(const QList<QStringList>& rows, const QString& name)
{
    QByteArray bytes;
    for (const QStringList& row : rows) {
        QStringList cells;
        for (const QString& text : row) {
            cells.append(csvCell(text));
        }
        bytes += cells.join(QLatin1Char(',')).toUtf8() + "\r\n";
    }
    return writeFile(bytes, name);
}

void DialogFixture::importFile(const QString& path)
{
    prompts.setFileToOpen(path);
    button("btn_import").click();
}

void DialogFixture::importRows(const QList<QStringList>& rows)
{
    importFile(writeCsv(rows));
}

QString DialogFixture::cell(int row, const QString& column, const QString& role)
{
    const int index = table().headNames().indexOf(column);
    return table().getViewData().value(row).value(index).value(role).toString();
}

QString DialogFixture::shown(int row, const QString& column)
{
    return cell(row, column, QStringLiteral("0"));
}

QString DialogFixture::value(int row, const QString& column)
{
    return cell(row, column, QStringLiteral("256"));
}

QVariantMap DialogFixture::leg(int instance, int k)
{
    const QVariantMap map = dialog->getWidgetData().value(instance);
    return map.value(Algo_Values::AlgoParamId::AlgoSecurityList).toList().value(k).toMap();
}

QString DialogFixture::lastBoxText() const
{
    return prompts.boxes().isEmpty() ? QString() : prompts.boxes().last().text;
}
