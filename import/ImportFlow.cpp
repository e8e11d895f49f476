// From the press on 导入算法 to the table: choosing the file, reading and limiting it, matching its header,
// reporting.

#include "amounts/QuoteSubscription.h"
#include "dialog/AlgoBatchImportParamSetting.h"
#include "dialog/ErrorBox.h"
#include "host/SolveyBusinessDataInterface.h"
#include "host/SolveyUtils.h"
#include "host/ZelTableView.h"
#include "import/HeaderMatching.h"
#include "import/ImportTexts.h"
#include "import/Logging.h"
#include "import/RowErrors.h"
#include "import/RowReader.h"
#include "import/TableReading.h"
#include "strategy/Strategy.h"
#include "table/FaultCatalogue.h"
#include "table/Table.h"
#include "table/Rules.h"
#include "ui_AlgoBatchImportParamSetting.h"

#include <QDateTime>

namespace {

QString sentenceOf(const QString& rule)
{
    return table::sentence(table::fault(rule));
}

} // namespace

void AlgoBatchImportParamSetting::slotBtnImportClicked()
{
    const QString path =
        SolveyUtils::GetOpenTableFileName(this, import::OpenTitle, QString(), ExportFileFormat(0));
    qCDebug(lcImport) << Q_FUNC_INFO << path;
    if (path.isEmpty()) {
        qCDebug(lcImport) << "filePath is empty!";
        return;
    }
    ui->table_paramSettings->clear();
    ui->btn_ok->setEnabled(true);
    mIsCsvFile = import::looksLikeCsv(path);
    mDateTimeFormat = import::dateTimeFormatOf(path);

    RecordDataList records;
    QMap<int, QString> errors;
    qCDebug(lcImport) << "import currentTime: before: " << QDateTime::currentDateTime();
    const QString result = importDataInfo(path, records, errors);
    qCDebug(lcImport) << "import currentTime: after: " << QDateTime::currentDateTime()
                      << " resultInfo: " << result;

    if (result == import::Ok) {
        showImported(records);
    } else if (result == import::RowErrors) {
        showImported(records);
        if (!errors.isEmpty()) { // a reader's own error may read like the code
            error_box::show(import::rowErrorText(errors));
        }
    } else if (result != import::Declined) {
        error_box::showAsIs(result);
    }
}

void AlgoBatchImportParamSetting::showImported(const RecordDataList& records)
{
    if (!records.isEmpty()) {
        ui->table_paramSettings->addRecordDataList(records);
        calculateExpectAmount(records);
    }
}

QString AlgoBatchImportParamSetting::importDataInfo(const QString& path, RecordDataList& records,
                                                    QMap<int, QString>& errors)
{
    qCDebug(lcImport) << "###tag: " << Q_FUNC_INFO;
    QString error;
    QList<QStringList> rows = SolveyUtils::ReadTableData(path, ReadTableCfg(1), error);
    if (!error.isEmpty()) {
        return error;
    }
    if (rows.isEmpty()) {
        return sentenceOf(table::rule::ReadFailed);
    }
    constexpr int headerAndData = 1 + table::MostOrders;
    if (rows.size() > headerAndData) {
        if (!error_box::ask(import::TooManyRows.arg(table::MostOrders), this)) {
            return import::Declined;
        }
        rows.erase(rows.begin() + headerAndData, rows.end());
    }
    qCDebug(lcImport) << "###tag: "
                      << " contentList: " << rows.count();
    const QString result = parseStrLst2TableModel(rows, records, errors);
    qCDebug(lcImport) << "###tag-import-end: "
                      << " contentList: " << rows.count();
    return errors.isEmpty() ? result : import::RowErrors;
}

QString AlgoBatchImportParamSetting::parseStrLst2TableModel(QList<QStringList>& rows, RecordDataList& records,
                                                            QMap<int, QString>& errors)
{
    mAllParamVarMapLst.clear();
    if (rows.isEmpty()) {
        return sentenceOf(table::rule::EmptyTable);
    }
    const QStringList fileHeader =
        import::completedHeader(rows.first(), strategy::traitsOf(getCurrentAlgoName()));
    const import::HeaderMatch header = import::matchHeader(fileHeader, import::wantedColumns(*mSchema));
    if (header.missingColumn) {
        return table::sentence(import::missingColumnFault(header));
    }
    qCDebug(lcImport) << " columnIndexMap: " << header.columnIndexMap;
    rows.removeFirst();
    if (rows.isEmpty()) {
        return sentenceOf(table::rule::NoDataRows);
    }
    return readRows(rows, header, records, errors);
}

/// One subscription for all securities, so that their first quotes are there when the rows are read.
QString AlgoBatchImportParamSetting::readRows(const QList<QStringList>& rows,
                                              const import::HeaderMatch& header, RecordDataList& records,
                                              QMap<int, QString>& errors)
{
    subscribeAndAwaitQuotes(import::symbolsOf(rows, header, mSchema->traits));
    const import::Account account = {ui->combx_account->GetCurTradingAccount(),
                                     ui->combx_account->GetCurAccountAssetProp()};
    const import::RowsRead read =
        import::RowReader(*mSchema, header, account, mDateTimeFormat).read({rows, {}});
    mAllParamVarMapLst = read.instances;
    records += read.records;
    for (const table::Fault& fault : read.faults) {
        errors[fault.row - 1] = table::sentence(fault);
    }
    if (read.end) {
        return table::sentence(*read.end);
    }
    if (mSchema->traits.has(strategy::Lock)) {
        processParams4AILOCK(records, errors);
    }
    SolveyBusinessDataInterface::CheckSymbolRiskInfo(read.symbols, import::RiskSource);
    return import::Ok;
}
