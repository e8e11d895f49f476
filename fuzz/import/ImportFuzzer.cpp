// A file imported by the real dialog on the embedded host with the small market. The first byte chooses
// strategy and account, the others are the file. Whatever they are: there is one instance for each record, a
// row is a record or an error or neither, and after a change of account everything trades through it.
//
//     ASAN_OPTIONS=detect_leaks=0 fuzz_import -max_total_time=60 CORPUS
//
// Leaks are not looked for: the dialog's form object stays allocated by design.
#include "embedded_host/EmbeddedHost.h"
#include "embedded_host/RecordingPrompts.h"
#include "embedded_host/table_reader/TableReader.h"
#include "fuzz/import/SeedHead.h"
#include "fuzz/table_reader/FuzzSupport.h"
#include "host/AlgoConstants.h"
#include "host/SolveyAccountComboBox.h"
#include "host/ZelTableView.h"
#include "schema/DateTimeFormat.h"
#include "tests/support/DialogInspector.h"
#include "tests/support/SmallMarket.h"

#include <QApplication>
#include <QLoggingCategory>
#include <QThread>

#include <memory>
#include <vector>

/// The import and the pricing each wait 300 ms for quotes. Here they are still and known at once, so that
/// waiting would only cost runs: the dialog's objects find this one before the library's.
void QThread::msleep(unsigned long) {}

namespace {

using fuzz::require;

/// Lives as long as the program. A dialog for each strategy, as loading a strategy again and again makes the
/// list of compulsory columns grow.
class Desk {
public:
    Desk() : mHost(ReferenceData(small_market::tables()))
    {
        mHost.setPrompts(&mPrompts);
        for (const AesStrategy& strategy : small_market::tables().strategies) {
            mDialogs.push_back(std::make_unique<AlgoBatchImportParamSetting>(nullptr, FixedStrategy));
            mDialogs.back()->CreateStrategyInitWidget(strategy);
        }
    }

    AlgoBatchImportParamSetting& dialog(int chosen)
    {
        mPrompts.clear();
        return *mDialogs.at(static_cast<std::size_t>(chosen) % mDialogs.size());
    }

private:
    RecordingPrompts mPrompts;
    EmbeddedHost mHost;
    std::vector<std::unique_ptr<AlgoBatchImportParamSetting>> mDialogs;
};

Desk& desk()
{
    static Desk* const desk = new Desk; // outlives the application object, which is never destroyed either
    return *desk;
}

void requireAccount(const QMap<QString, QVariant>& entry, const QString& account)
{
    require(entry.value(Algo_Fields::AlgoInstContentInfo::TradingAccount).toString() == account);
}

void chooseAccount(AlgoBatchImportParamSetting& dialog, SolveyAccountComboBox& accounts, int index)
{
    if (accounts.currentIndex() == index) {
        return;
    }
    const int instances = dialog.getWidgetData().size();
    accounts.setCurrentIndex(index);
    const QString account = accounts.GetCurTradingAccount();
    require(dialog.getWidgetData().size() == instances);
    for (const QMap<QString, QVariant>& instance : dialog.getWidgetData()) {
        requireAccount(instance, account);
        for (const QVariant& leg : instance.value(Algo_Values::AlgoParamId::AlgoSecurityList).toList()) {
            requireAccount(leg.toMap(), account);
        }
    }
}

RecordDataList importRows(DialogInspector inspector, QList<QStringList> rows, const QString& format)
{
    inspector.dateTimeFormat() =
        format == QLatin1String("csv") ? schema::TypedDateTimeFormat : schema::SheetDateTimeFormat;
    RecordDataList records;
    QMap<int, QString> errors;
    const int dataRows = rows.size() - 1;
    inspector.parseStrLst2TableModel(rows, records, errors);
    require(inspector.maps().size() == records.size());
    require(records.size() + errors.size() <= dataRows);
    require(errors.isEmpty() || (errors.firstKey() >= 0 && errors.lastKey() < dataRows));
    return records;
}

void use(AlgoBatchImportParamSetting& dialog, int account, const table::Table& table)
{
    auto& accounts = *dialog.findChild<SolveyAccountComboBox*>(QStringLiteral("combx_account"));
    auto& view = *dialog.findChild<ZelTableView*>(QStringLiteral("table_paramSettings"));
    DialogInspector inspector(dialog);
    inspector.maps().clear();
    view.clear();
    chooseAccount(dialog, accounts, account % accounts.count());
    const RecordDataList records = importRows(inspector, table.rows, table.format);
    view.addRecordDataList(records);
    inspector.calculateExpectAmount(records);
    const bool paired = dialog.getCurrentAlgoName() == QLatin1String("AILOCK");
    paired ? inspector.checkAILOCK() : inspector.checkAccounTypesInParamsMap();
    chooseAccount(dialog, accounts, (account + 1) % accounts.count());
    chooseAccount(dialog, accounts, account % accounts.count());
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QLoggingCategory::setFilterRules(QStringLiteral("*=false"));
    new QApplication(*argc, *argv);
    desk();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    if (size == 0) {
        return 0;
    }
    QByteArray bytes = fuzz::bytesOf(data + 1, size - 1);
    QBuffer file(&bytes);
    file.open(QIODevice::ReadOnly);
    const table::Table table = table_reader::readTable(file);
    if (!table.rows.isEmpty()) {
        use(desk().dialog(fuzz::strategyOf(data[0])), fuzz::accountOf(data[0]), table);
    }
    return 0;
}
