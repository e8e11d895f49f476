#pragma once

#include "dialog/AlgoBatchImportParamSetting.h"

#include <QVector>

/// Reaches the dialog's private members for tests of operations that no button reaches.
class DialogInspector {
public:
    explicit DialogInspector(AlgoBatchImportParamSetting& dialog) : mDialog(dialog) {}

    // Tables of the loaded strategy.
    QMap<QString, QString>& uiTypes() { return mDialog.mColUiTypeMap; }
    QMap<QString, QVariant>& paramIds() { return mDialog.mColParamIdMap; }
    QMap<QString, QMap<QString, QVariant>>& formats() { return mDialog.mColParamFmtMap; }
    QMap<QString, QMap<QString, QString>>& options() { return mDialog.mColOptionMap; }
    QMap<QString, QMap<QString, QString>>& acceptedValues() { return mDialog.mColValueNameMap; }
    QMap<QString, QString>& headAliases() { return mDialog.mHeadAliasMap; }
    QStringList& tableHead() { return mDialog.mTableHeadLst; }
    QStringList& symbolParams() { return mDialog.mSymbolParamLst; }
    QStringList& instanceParams() { return mDialog.mInsParamLst; }
    QStringList& extraColumns() { return mDialog.mExtraColNameLst; }
    QStringList& numericColumns() { return mDialog.mNumericColNameLst; }
    QStringList& strategyCodes() { return mDialog.mStrategyCodeLst; }
    QList<QMap<QString, QVariant>>& maps() { return mDialog.mAllParamVarMapLst; }
    QString& dateTimeFormat() { return mDialog.mDateTimeFormat; }
    /// Where the members stand, in the order of their declaration.
    QVector<const void*> memberAddresses() const
    {
        return {&mDialog.ui,
                &mDialog.mColParamIdMap,
                &mDialog.mColParamFmtMap,
                &mDialog.mColOptionMap,
                &mDialog.mColValueNameMap,
                &mDialog.mColUiTypeMap,
                &mDialog.mHeadAliasMap,
                &mDialog.mTableHeadLst,
                &mDialog.mSymbolParamLst,
                &mDialog.mInsParamLst,
                &mDialog.mExtraColNameLst,
                &mDialog.mAllParamVarMapLst,
                &mDialog.mNumericColNameLst,
                &mDialog.mIsCreatedClose,
                &mDialog.mStrategy,
                &mDialog.mStrategyCodeLst,
                &mDialog.mInsType,
                &mDialog.mSettings,
                &mDialog.mIsCsvFile,
                &mDialog.mDateTimeFormat};
    }
    bool isCsvFile() const { return mDialog.mIsCsvFile; }
    bool isCreatedClose() const { return mDialog.mIsCreatedClose; }
    QSettings* settings() const { return mDialog.mSettings; }
    Ui::AlgoBatchImportParamSetting* form() const { return mDialog.ui; }

    // Operations by their names.
    QStringList initTableHeadList(const QString& formats, QString& error)
    {
        return mDialog.initTableHeadList(formats, error);
    }
    void saveComboxParamValue(QMap<QString, QMap<QString, QString>>& options, const QVariantMap& entry,
                              const QString& name)
    {
        mDialog.saveComboxParamValue(options, entry, name);
    }
    QString transColData2ColDataName(const QString& symbol, const QString& column, QString& cell,
                                     QString& error)
    {
        return mDialog.transColData2ColDataName(symbol, column, cell, error);
    }
    QString getDateTime(QString& text) { return mDialog.getDateTime(text); }
    QString transNotSupportParamsForNameAndValue(const QMap<QString, QString>& options)
    {
        return mDialog.transNotSupportParamsForNameAndValue(options);
    }
    QString transNotSupportParamsForValueAndName(QMap<QString, QString> values)
    {
        return mDialog.transNotSupportParamsForValueAndName(values);
    }
    QString getCreateIfStartName(const QString& flag) { return mDialog.getCreateIfStartName(flag); }
    QString getStyleName(const QString& style, QString& code) { return mDialog.getStyleName(style, code); }
    QString getEntrustPropertyName(const QString& property)
    {
        return mDialog.getEntrustPropertyName(property);
    }
    QString getEntrustPosition(const QString& level) { return mDialog.getEntrustPosition(level); }
    QString getUpNoSellAndDownNoBuy(const QString& flag) { return mDialog.getUpNoSellAndDownNoBuy(flag); }
    QString getExchangeName(const QString& exchange) { return mDialog.getExchangeName(exchange); }
    QString getSecurityAccount(const QString& ignored, const QString& exchange)
    {
        return mDialog.getSecurityAccount(ignored, exchange);
    }
    void transRecordMap(RecordData& record, int column, QString shown, QString value)
    {
        mDialog.transRecordMap(record, column, shown, value);
    }
    void transColData2ParamMap(const QString& column, const QString& value, QMap<QString, QVariant>& security,
                               QMap<QString, QVariant>& instance)
    {
        mDialog.transColData2ParamMap(column, value, security, instance);
    }
    QString importDataInfo(const QString& path, RecordDataList& records, QMap<int, QString>& errors)
    {
        return mDialog.importDataInfo(path, records, errors);
    }
    QString parseStrLst2TableModel(QList<QStringList>& rows, RecordDataList& records,
                                   QMap<int, QString>& errors)
    {
        return mDialog.parseStrLst2TableModel(rows, records, errors);
    }
    QString importFileColIsEmpty(int column) { return mDialog.importFileColIsEmpty(column); }
    QString importFileTableHeadLackCol(int column) { return mDialog.importFileTableHeadLackCol(column); }
    QString checkAccounTypesInParamsMap() { return mDialog.checkAccounTypesInParamsMap(); }
    QString checkSymbolType(int row, const QString& symbol, const QString& exchange)
    {
        return mDialog.checkSymbolType(row, symbol, exchange);
    }
    QString checkEntrustProp(int row, const QString& property, const QString& account)
    {
        return mDialog.checkEntrustProp(row, property, account);
    }
    QString checkEntrustProp(int row, const QString& property, const QString& account, const QString& side)
    {
        return mDialog.checkEntrustProp(row, property, account, side);
    }
    QString parseSymbolAndExchangeFromParamsMap(const QList<QVariant>& list, QString& symbol,
                                                QString& exchange)
    {
        return mDialog.parseSymbolAndExchangeFromParamsMap(list, symbol, exchange);
    }
    void processParams4AILOCK(RecordDataList& records, QMap<int, QString>& errors)
    {
        mDialog.processParams4AILOCK(records, errors);
    }
    QString checkAILOCK() { return mDialog.checkAILOCK(); }
    void calculateExpectAmount(const RecordDataList& rows) { mDialog.calculateExpectAmount(rows); }
    qint64 transBalance2Qty(QString symbol, const QString& side, double amount)
    {
        return mDialog.transBalance2Qty(symbol, side, amount);
    }
    qint64 roundQty(qint64 quantity, int step, int minimum)
    {
        return mDialog.roundQty(quantity, step, minimum);
    }

private:
    AlgoBatchImportParamSetting& mDialog;
};
