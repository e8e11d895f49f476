#include "desk/runner/Commands.h"
#include "desk/runner/Runner.h"
#include "desk/runner/Session.h"
#include "embedded_host/table_reader/TableReader.h"

#include <QJsonArray>
#include <QJsonObject>

#include <memory>

namespace runner {

namespace {

/// A document that is JSON stands as JSON, any other as the text that it is.
QJsonValue paramFormatsToJson(const QString& paramFormats)
{
    const QJsonDocument document = QJsonDocument::fromJson(paramFormats.toUtf8());
    if (document.isArray()) {
        return document.array();
    }
    return document.isObject() ? QJsonValue(document.object()) : QJsonValue(paramFormats);
}

QJsonObject toJson(const AesStrategy& strategy)
{
    return {{QStringLiteral("name"), strategy.name()},
            {QStringLiteral("alias"), strategy.alias()},
            {QStringLiteral("globalType"), strategy.globalType()},
            {QStringLiteral("paramFormats"), paramFormatsToJson(strategy.paramFormats())}};
}

QJsonObject toJson(const tagUserAccountInfo& account)
{
    return {{QStringLiteral("tradingAccount"), account.tradingAccount},
            {QStringLiteral("name"), account.name},
            {QStringLiteral("fundAccountType"), account.fundAccountType},
            {QStringLiteral("assetProp"), account.assetProp},
            {QStringLiteral("sysNodeId"), account.sysNodeId}};
}

QJsonObject toJson(const Security& security)
{
    return {{QStringLiteral("symbol"), security.symbol},
            {QStringLiteral("code"), security.code},
            {QStringLiteral("name"), security.name},
            {QStringLiteral("post"), security.post},
            {QStringLiteral("exchanges"), QJsonArray::fromStringList(security.exchanges)},
            {QStringLiteral("securityType"), security.securityType},
            {QStringLiteral("subType"), security.subType},
            {QStringLiteral("dispFactor"), security.dispFactor},
            {QStringLiteral("minQtyPerOrder"), security.minQtyPerOrder},
            {QStringLiteral("qtyStep"), security.qtyStep},
            {QStringLiteral("pricePrecision"), security.pricePrecision},
            {QStringLiteral("bondRepo"), security.bondRepo}};
}

template <typename Item> Result list(const CommandLine& line, QList<Item> ReferenceTables::*items)
{
    QString error;
    const std::shared_ptr<EmbeddedHost> host = openHost(line, error);
    if (!host) {
        return refuse(error);
    }
    return printEach([host, items](const TakeElement& take) -> Outcome<void> {
        for (const Item& item : host->referenceData().tables().*items) {
            if (!take(toJson(item))) {
                break;
            }
        }
        return {};
    });
}

} // namespace

Result listStrategies(const CommandLine& line)
{
    return list(line, &ReferenceTables::strategies);
}

Result listAccounts(const CommandLine& line)
{
    return list(line, &ReferenceTables::accounts);
}

Result listSecurities(const CommandLine& line)
{
    return list(line, &ReferenceTables::securities);
}

Result readRows(const CommandLine& line)
{
    table_reader::ReadOptions options;
    options.encoding = line.encoding;
    const table::Table table = table_reader::readTable(line.files.first(), options);
    QJsonArray rows;
    for (const QStringList& row : table.rows) {
        rows.append(QJsonArray::fromStringList(row));
    }
    const QJsonObject json = {{QStringLiteral("rows"), rows},
                              {QStringLiteral("error"), table.error},
                              {QStringLiteral("format"), table.format},
                              {QStringLiteral("encoding"), table.encoding}};
    return print(table.error.isEmpty() ? Done : Complained, QJsonDocument(json));
}

} // namespace runner
