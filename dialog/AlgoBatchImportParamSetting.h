#pragma once

#include "dialog/AlgoBatchImportExport.h"
#include "host/AesStrategy.h"
#include "host/IZelSkin.h"
#include "host/RecordDataList.h"

#include <QList>
#include <QMap>
#include <QString>
#include <QStringList>
#include <QVariant>
#include <QWidget>

#include <memory>

class QSettings;

namespace Ui {
class AlgoBatchImportParamSetting;
}

namespace import {
struct HeaderMatch;
}
namespace strategy {
struct Element;
struct Parameter;
struct Strategy;
} // namespace strategy
namespace validation {
struct ChosenAccount;
}

/// How far the user may choose the algorithm type.
enum BatchInsType {
    FixedStrategy = 0,     ///< the dialog stays bound to the strategy that the host gave it
    SelectableStrategy = 1 ///< every change of algorithm type is kept as the user's default
};

/// Imports a table in which every row describes one instance of an execution algorithm, shows the rows as the
/// strategy's parameters with the expected amounts, checks the batch against the chosen account and hands the
/// host one parameter map per instance.
///
/// Order of calls:
///
///     auto* dialog = new AlgoBatchImportParamSetting(parent, SelectableStrategy);
///     dialog->CreateStrategyInitWidget(strategy);                    // from the host's catalogue
///     connect(dialog, &AlgoBatchImportParamSetting::signalBtnOkClicked, …);
///     dialog->show();
///     // on signalBtnOkClicked: take getWidgetData(), create the instances, then close the dialog or call
///     // slotResetOkBtn(), so that the user can confirm again
///
/// GUI thread only. The dialog never closes itself and owns no host service. Importing and pricing each block
/// the thread for 300 ms after subscribing to quotes, so that the first ones arrive.
class ALGO_BATCH_IMPORT_EXPORT AlgoBatchImportParamSetting : public QWidget, public IZelSkin {
    Q_OBJECT

public:
    AlgoBatchImportParamSetting(QWidget* parent, BatchInsType type);
    ~AlgoBatchImportParamSetting() override;

    /// Loads a strategy: columns, accounts, settings; what was imported before is discarded. Always returns
    /// an empty text.
    QString CreateStrategyInitWidget(const AesStrategy& strategy);
    /// Code of the algorithm type shown, such as "AITWAP"; empty when none is.
    QString getCurrentAlgoName();
    /// The loaded strategy; a default-constructed one before the first load.
    AesStrategy getStrategy() const;
    /// One parameter map per instance, in table order: parameter identifier -> text; the legs stand under
    /// Algo_Values::AlgoParamId::AlgoSecurityList as a list of maps. After an import that ended early there
    /// are maps that the table does not show.
    QList<QMap<QString, QVariant>> getWidgetData();
    /// Wears a style sheet text; an invalid variant changes nothing.
    void loadSkin(const QVariant& style) override;

signals:
    /// The batch passed every check. `createdClose`: the user wants the dialog closed once the instances
    /// exist.
    void signalBtnOkClicked(bool createdClose);
    void signalBtnCancelClicked();

public slots:
    /// The host has dealt with the batch, created or not: the user may confirm again.
    void slotResetOkBtn();
    /// Writes the chosen account, its node and its security accounts into every instance.
    void slotCbxAccountChanged();
    /// Prices the table again where it is visible and not empty.
    void slotUpdateAmount();

private slots:
    void slotBtnImportClicked();
    void slotBtnOkClicked();
    void slotBtnCancelClicked();
    void slotIsCreatedClose();
    void slotBtnExportClicked();
    void slotCbxAlgoTypeClicked();

private:
    /// Tests look at what no public operation reaches.
    friend class DialogInspector;

    // dialog/
    void clearSchema();
    void fillFixedTables();
    void fillAlgoTypes();
    void initConnect();
    void initGuiData(const AesStrategy& strategy);
    void initAccounts();
    void addOwnColumns();
    void initTable(const QStringList& columns);
    void initAmountBoxes();
    void initSettings();
    QString batchError();

    // schema/
    QStringList initTableHeadList(const QString& paramFormats, QString& error);
    void saveElement(const strategy::Element& element);
    void saveParameter(const strategy::Parameter& parameter);
    void saveComboxParamValue(QMap<QString, QMap<QString, QString>>& options, const QVariantMap& entry,
                              const QString& paramName);
    QString transColData2ColDataName(const QString& symbol, const QString& colName, QString& colData,
                                     QString& error);
    QString getDateTime(QString& dt);
    QString transNotSupportParamsForNameAndValue(const QMap<QString, QString>& options) const;
    QString transNotSupportParamsForValueAndName(QMap<QString, QString>& values) const;
    QString getCreateIfStartName(const QString& ifStart) const;
    QString getStyleName(const QString& style, QString& styleCode) const;
    QString getEntrustPropertyName(QString property) const;
    QString getEntrustPosition(const QString& num) const;
    QString getUpNoSellAndDownNoBuy(const QString& flag) const;
    QString getExchangeName(const QString& exchange) const;
    QString getSecurityAccount(const QString& ignored, const QString& exchange) const;
    void transRecordMap(RecordData& record, int column, QString& shownText, QString& value);
    void transColData2ParamMap(const QString& colName, const QString& value,
                               QMap<QString, QVariant>& securityEntry, QMap<QString, QVariant>& paramMap);

    // import/
    QString importDataInfo(const QString& path, RecordDataList& records, QMap<int, QString>& errors);
    QString parseStrLst2TableModel(QList<QStringList>& rows, RecordDataList& records,
                                   QMap<int, QString>& errors);
    QString readRows(const QList<QStringList>& rows, const import::HeaderMatch& header,
                     RecordDataList& records, QMap<int, QString>& errors);
    QString importFileColIsEmpty(int column) const;
    QString importFileTableHeadLackCol(int column) const;
    void showImported(const RecordDataList& records);

    // validation/
    QString checkAccounTypesInParamsMap();
    validation::ChosenAccount chosenAccount(const QString& tradingAccount) const;
    QString checkSymbolType(int row, const QString& symbol, const QString& exchange) const;
    QString checkEntrustProp(int row, const QString& entrustProp, const QString& tradingAccount) const;
    QString checkEntrustProp(int row, const QString& entrustProp, const QString& tradingAccount,
                             QString orderSide) const;
    QString parseSymbolAndExchangeFromParamsMap(const QList<QVariant>& securityList, QString& symbol,
                                                QString& exchange) const;
    void processParams4AILOCK(RecordDataList& records, QMap<int, QString>& errors);
    QString checkAILOCK();

    // amounts/
    void calculateExpectAmount(RecordDataList rows);
    qint64 transBalance2Qty(QString& symbol, QString side, double amount);
    qint64 roundQty(qint64 qty, int step, int minimum) const;

    Ui::AlgoBatchImportParamSetting*
        ui; ///< stays allocated when the dialog goes; its widgets have Qt parents
    // The loaded strategy's schema, keyed by column name.
    QMap<QString, QVariant> mColParamIdMap;
    QMap<QString, QMap<QString, QVariant>> mColParamFmtMap;
    QMap<QString, QMap<QString, QString>> mColOptionMap; ///< column -> (option's display -> value)
    // Fixed vocabularies.
    QMap<QString, QMap<QString, QString>> mColValueNameMap; ///< column -> (accepted value -> display)
    QMap<QString, QString> mColUiTypeMap;
    QMap<QString, QString> mHeadAliasMap; ///< title in a file -> column name
    QStringList mTableHeadLst;
    QStringList mSymbolParamLst; ///< parameters of a security
    QStringList mInsParamLst;    ///< parameters of an instance
    QStringList
        mExtraColNameLst; ///< columns that a file must have; grows at each load, only tested for membership
    QList<QMap<QString, QVariant>> mAllParamVarMapLst; ///< one map per instance, in table order
    QStringList mNumericColNameLst;                    ///< columns of whole numbers
    bool mIsCreatedClose = true;
    AesStrategy mStrategy;
    QStringList mStrategyCodeLst; ///< strategies that accept Hong Kong securities
    BatchInsType mInsType;
    QSettings* mSettings = nullptr; ///< the newest of the dialog's settings objects
    bool mIsCsvFile = false;
    QString mDateTimeFormat; ///< layout of date-times in the file being imported
    /// The loaded strategy as a value, of which the schema above is what the class's own operations look at;
    /// null before the first load.
    std::shared_ptr<const strategy::Strategy> mSchema;
};
