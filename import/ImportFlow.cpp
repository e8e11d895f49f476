// From the press on 导入算法 to the table: choosing the file, reading and limiting it, matching its header,
// reporting.

#include "dialog/AlgoBatchImportParamSetting.h"
#include "dialog/ColumnNames.h"
#include "dialog/ErrorBox.h"
#include "dialog/Logging.h"
#include "dialog/StrategyLists.h"
#include "host/AlgoConstants.h"
#include "host/SolveyUtils.h"
#include "host/ZelTableView.h"
#include "import/HeaderMatching.h"
#include "import/ImportTexts.h"
#include "import/RowErrors.h"
#include "import/RowParser.h"
#include "schema/DateTimeFormat.h"
#include "ui_AlgoBatchImportParamSetting.h"

#include <QDateTime>

namespace Field = Algo_Fields::AlgoParamFields;

namespace {

constexpr int MaxDataRows = 1000;

const QString SpreadsheetDateTimeFormat = QStringLiteral("yyyy-M-dTH:m:s.z");

/// The second dot-separated part of the whole path decides, not the extension: below a folder with a dot in
/// its name no file is taken for comma-separated text.
bool looksLikeCsv(const QString& path)
{
    const QStringList parts = path.split(QLatin1Char('.'));
    return parts.size() >= 2 && parts.at(1).toLower() == QLatin1String("csv");
}

/// Columns whose parameter is required: any text but "false" requires it, and an absent attribute does not.
QStringList requiredColumns(const QStringList& titles, const QMap<QString, QMap<QString, QVariant>>& formats)
{
    const QString no = QStringLiteral("false");
    QStringList required;
    for (const QString& title : titles) {
        if (formats.value(title).value(Field::required, no).toString() != no) {
            required.append(title);
        }
    }
    return required;
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
    mIsCsvFile = looksLikeCsv(path);
    mDateTimeFormat = mIsCsvFile ? schema::TypedDateTimeFormat : SpreadsheetDateTimeFormat;

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
        return import::ReadFailed;
    }
    constexpr int headerAndData = 1 + MaxDataRows;
    if (rows.size() > headerAndData) {
        if (!error_box::ask(import::TooManyRows.arg(MaxDataRows), this)) {
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
        return import::EmptyTable;
    }
    // Strategies that always start on creation have no column for it: their rows are read as if they had it
    // in front.
    const bool startsOnCreate = StartOnCreateStrategyList.contains(getCurrentAlgoName());
    QStringList fileHeader = rows.first();
    if (startsOnCreate) {
        fileHeader.prepend(columns::CreateAndStart);
    }
    const import::HeaderMatch header =
        import::matchHeader(fileHeader, {mTableHeadLst, mHeadAliasMap, mSymbolParamLst + mExtraColNameLst,
                                         requiredColumns(mTableHeadLst, mColParamFmtMap)});
    if (header.missingColumn) {
        return import::MissingColumn.arg(*header.missingColumn);
    }
    qCDebug(lcImport) << " columnIndexMap: " << header.columnIndexMap;
    rows.removeFirst();
    if (rows.isEmpty()) {
        return import::NoData;
    }
    RowParser parser(*this, header);
    parser.subscribeToQuotes(rows);
    return parser.parse(rows, records, errors);
}
