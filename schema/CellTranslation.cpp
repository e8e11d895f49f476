#include "schema/CellTranslation.h"

#include "amounts/WholeNumbers.h"
#include "host/AlgoConstants.h"
#include "host/CBusinessDataBase.h"
#include "host/FuturesLogicInterface.h"
#include "host/NorvikConstants.h"
#include "host/SolveyBusinessDataInterface.h"
#include "schema/DateTimeFormat.h"
#include "schema/DateTimeText.h"
#include "schema/Logging.h"
#include "strategy/ColumnNames.h"
#include "table/FaultCatalogue.h"
#include "table/Rules.h"

namespace schema {

namespace {

namespace UiType = Algo_Values::AlgoParamUiType;

const QChar LegSeparator = QLatin1Char('/');

bool isPriceColumn(const QString& title)
{
    return title == columns::Limit || title == Algo_Fields::AlgoInstContentInfo::PriceLimits;
}

int pricePrecision(const QString& symbol)
{
    const QString type = CBusinessDataBase::GetInstance()->GetSecurityTypeBySymbol(symbol);
    return type == Norvik_Values::MdcSecurityType::FuturesType
               ? FuturesLogicInterface::GetFuturesPricePrecision(symbol)
               : SolveyBusinessDataInterface::GetPricePrecisionBySymbol(symbol, QString());
}

Translation same(const QString& text)
{
    return {text, text, std::nullopt};
}

Translation refused(const QString& cell, const QString& rule, const QStringList& arguments)
{
    return {TranslationError, cell, table::fault(rule, arguments)};
}

} // namespace

Translation Translator::translated(const strategy::Column& column, const QString& symbol,
                                   const QString& cell) const
{
    qCDebug(lcSchema) << "transColData2ColDataName" << column.title << cell;
    if (column.editor == UiType::DateTime) {
        return dateTime(column, cell);
    }
    if (column.editor == UiType::ComboBox) {
        return option(column, symbol, cell);
    }
    if (column.editor == UiType::LineEdit) {
        return line(column, symbol, cell);
    }
    return same(cell);
}

Translation Translator::dateTime(const strategy::Column& column, const QString& cell) const
{
    const QString sent = sentDateTimeOf(cell, dateTimeFormat);
    return sent.isEmpty() ? refused(cell, table::rule::BadDateTime, {column.title, SentDateTimeFormat})
                          : same(sent);
}

bool Translator::splits(const QString& cell, QString& first, QString& second) const
{
    if (!twoLegs || !cell.contains(LegSeparator)) {
        return false;
    }
    const QStringList parts = cell.split(LegSeparator);
    if (parts.size() != 2) {
        return false;
    }
    first = parts.first();
    second = parts.last();
    return true;
}

Translation Translator::option(const strategy::Column& column, const QString& symbol,
                               const QString& cell) const
{
    QString first;
    QString second;
    if (splits(cell, first, second)) {
        const Translation one = translated(column, symbol, first);
        if (one.fault) {
            return {one.shown, cell, one.fault};
        }
        const Translation other = translated(column, symbol, second);
        if (other.fault) {
            return {other.shown, cell, other.fault};
        }
        return {one.shown + LegSeparator + other.shown, one.value + LegSeparator + other.value, std::nullopt};
    }

    if (!column.accepted.isEmpty()) {
        const auto known = column.accepted.constFind(cell);
        if (known == column.accepted.constEnd()) {
            qCDebug(lcSchema) << " colName: " << column.title << " colData: " << cell
                              << " specParamValueAndDispMap: " << column.accepted;
            return refused(cell, table::rule::NotSupported, {column.title, acceptedValues(column.accepted)});
        }
        return {*known, column.options.value(*known), std::nullopt};
    }

    qCDebug(lcSchema) << " paramValueDataAndDispMap: " << column.options;
    const QString shown = column.options.key(cell);
    if (shown.isEmpty()) {
        qCDebug(lcSchema) << " colName: " << column.title << " colData: " << cell;
        return refused(cell, table::rule::NotSupported, {column.title, acceptedOptions(column.options)});
    }
    return {shown, cell, std::nullopt};
}

Translation Translator::line(const strategy::Column& column, const QString& symbol, const QString& cell) const
{
    if (column.wholeNumber) {
        return same(QString::number(double(amounts::tolerantTruncation(cell.toDouble())), 'f', 0));
    }
    if (!isPriceColumn(column.title)) {
        return same(cell);
    }
    QString first;
    QString second;
    if (splits(cell, first, second)) {
        // The value stays as it was typed: the legs take their prices from it.
        const QString firstPrice = translated(column, symbol, first).shown;
        return {firstPrice + LegSeparator + translated(column, symbol, second).shown, cell, std::nullopt};
    }
    return same(QString::number(cell.toDouble(), 'f', pricePrecision(symbol)));
}

QString sentDateTimeOf(const QString& typed, const QString& dateTimeFormat)
{
    QString sent = sentDateTimeIn(typed, dateTimeFormat);
    if (sent.isEmpty()) {
        sent = sentDateTimeIn(typed, TypedDateTimeFormat);
    }
    qCDebug(lcSchema) << "getDateTime" << typed << dateTimeFormat << sent;
    return sent;
}

QString acceptedOptions(const QMap<QString, QString>& options)
{
    QString list;
    for (auto option = options.constBegin(); option != options.constEnd(); ++option) {
        list += option.value() + QLatin1Char('-') + option.key() + QLatin1Char(',');
        qCDebug(lcSchema) << " tmp: " << list;
    }
    return list;
}

QString acceptedValues(const QMap<QString, QString>& values)
{
    QString list;
    for (const QString& shown : values) {
        list += shown + QLatin1Char('-') + values.key(shown) + QLatin1Char(',');
    }
    return list;
}

} // namespace schema
