// A cell holds what a person typed. Translation turns it into a shown text (the result) and a value for the
// server (written back into the cell text), by the column's editor type.

#include "dialog/AlgoBatchImportParamSetting.h"
#include "dialog/ColumnNames.h"
#include "dialog/Logging.h"
#include "dialog/StrategyLists.h"
#include "host/AlgoConstants.h"
#include "host/CBusinessDataBase.h"
#include "host/FuturesLogicInterface.h"
#include "host/NorvikConstants.h"
#include "host/SolveyBusinessDataInterface.h"
#include "schema/DateTimeFormat.h"
#include "schema/TolerantTruncation.h"
#include "schema/TranslationError.h"

#include <QDateTime>

namespace UiType = Algo_Values::AlgoParamUiType;
using schema::NotSupported;
using schema::SentDateTimeFormat;
using schema::TranslationError;
using schema::TypedDateTimeFormat;

namespace {

const QString BadDateTime = QStringLiteral("%1格式不正确，时间格式为%2");
const QChar LegSeparator = QLatin1Char('/');

bool isPriceColumn(const QString& colName)
{
    return colName == columns::Limit || colName == Algo_Fields::AlgoInstContentInfo::PriceLimits;
}

int pricePrecision(const QString& symbol)
{
    const QString type = CBusinessDataBase::GetInstance()->GetSecurityTypeBySymbol(symbol);
    return type == Norvik_Values::MdcSecurityType::FuturesType
               ? FuturesLogicInterface::GetFuturesPricePrecision(symbol)
               : SolveyBusinessDataInterface::GetPricePrecisionBySymbol(symbol, QString());
}

QString reformatted(const QString& dateTime, const QString& layout)
{
    return schema::sentDateTime(QDateTime::fromString(dateTime, layout));
}

} // namespace

QString AlgoBatchImportParamSetting::transColData2ColDataName(const QString& symbol, const QString& colName,
                                                              QString& colData, QString& error)
{
    qCDebug(lcSchema) << Q_FUNC_INFO << colName << colData << error;
    const QString uiType = mColUiTypeMap.value(colName);
    if (uiType == UiType::DateTime) {
        return translateDateTime(colName, colData, error);
    }
    if (uiType == UiType::ComboBox) {
        return translateOption(symbol, colName, colData, error);
    }
    if (uiType == UiType::LineEdit) {
        return translateLine(symbol, colName, colData, error);
    }
    return colData;
}

QString AlgoBatchImportParamSetting::translateDateTime(const QString& colName, QString& colData,
                                                       QString& error)
{
    const QString shown = getDateTime(colData);
    if (shown == TranslationError) {
        error = BadDateTime.arg(colName, SentDateTimeFormat);
    }
    return shown;
}

/// A lock strategy's cell of exactly two parts holds one value per leg.
bool AlgoBatchImportParamSetting::splitPairedCell(const QString& colData, QString& first,
                                                  QString& second) const
{
    if (!colData.contains(LegSeparator) || !AilockStrategyList.contains(mStrategy.name())) {
        return false;
    }
    const QStringList parts = colData.split(LegSeparator);
    if (parts.size() != 2) {
        return false;
    }
    first = parts.first();
    second = parts.last();
    return true;
}

QString AlgoBatchImportParamSetting::translateOption(const QString& symbol, const QString& colName,
                                                     QString& colData, QString& error)
{
    QString first;
    QString second;
    if (splitPairedCell(colData, first, second)) {
        const QString firstShown = transColData2ColDataName(symbol, colName, first, error);
        if (!error.isEmpty()) {
            return firstShown;
        }
        const QString secondShown = transColData2ColDataName(symbol, colName, second, error);
        if (!error.isEmpty()) {
            return secondShown;
        }
        colData = first + LegSeparator + second;
        return firstShown + LegSeparator + secondShown;
    }

    const QMap<QString, QString> options = mColOptionMap.value(colName);
    QMap<QString, QString> accepted = mColValueNameMap.value(colName);
    if (!accepted.isEmpty()) {
        const auto known = accepted.constFind(colData);
        if (known == accepted.constEnd()) {
            qCDebug(lcSchema) << " colName: " << colName << " colData: " << colData
                              << " specParamValueAndDispMap: " << accepted;
            error = NotSupported.arg(colName, transNotSupportParamsForValueAndName(accepted));
            return TranslationError;
        }
        colData = options.value(*known);
        return *known;
    }

    qCDebug(lcSchema) << " paramValueDataAndDispMap: " << options;
    const QString shown = options.key(colData);
    if (shown.isEmpty()) {
        qCDebug(lcSchema) << " colName: " << colName << " colData: " << colData;
        error = NotSupported.arg(colName, transNotSupportParamsForNameAndValue(options));
        return TranslationError;
    }
    return shown;
}

QString AlgoBatchImportParamSetting::translateLine(const QString& symbol, const QString& colName,
                                                   QString& colData, QString& error)
{
    if (mNumericColNameLst.contains(colName)) {
        colData = QString::number(double(schema::tolerantTruncation(colData.toDouble())), 'f', 0);
        return colData;
    }
    if (!isPriceColumn(colName)) {
        return colData;
    }
    QString first;
    QString second;
    if (splitPairedCell(colData, first, second)) {
        // The cell text stays as it was typed: the legs take their prices from it.
        const QString firstPrice = transColData2ColDataName(symbol, colName, first, error);
        return firstPrice + LegSeparator + transColData2ColDataName(symbol, colName, second, error);
    }
    colData = QString::number(colData.toDouble(), 'f', pricePrecision(symbol));
    return colData;
}

QString AlgoBatchImportParamSetting::getDateTime(QString& dt)
{
    QString result = reformatted(dt, mDateTimeFormat);
    if (result.isEmpty()) {
        result = reformatted(dt, TypedDateTimeFormat);
    }
    qCDebug(lcSchema) << Q_FUNC_INFO << dt << mDateTimeFormat << result;
    if (result.isEmpty()) {
        return TranslationError;
    }
    dt = result;
    return result;
}

QString
AlgoBatchImportParamSetting::transNotSupportParamsForNameAndValue(const QMap<QString, QString>& options) const
{
    QString tmp;
    for (auto option = options.constBegin(); option != options.constEnd(); ++option) {
        tmp += option.value() + QLatin1Char('-') + option.key() + QLatin1Char(',');
        qCDebug(lcSchema) << " tmp: " << tmp;
    }
    return tmp;
}

/// Values that share a display are each listed with the first of them.
QString
AlgoBatchImportParamSetting::transNotSupportParamsForValueAndName(QMap<QString, QString>& values) const
{
    QString tmp;
    for (const QString& display : qAsConst(values)) {
        tmp += display + QLatin1Char('-') + values.key(display) + QLatin1Char(',');
    }
    return tmp;
}
