#pragma once

#include <QDateTime>
#include <QList>
#include <QMap>
#include <QString>
#include <QStringList>
#include <QUuid>
#include <QVariant>

/// A batch on its way into the ledger: what the dialog handed over, in the shape that guard and ledger read.
namespace ledger {

/// One security of an instance. A paired instance has two, any other one.
struct Leg {
    QString symbol;    ///< such as 600000.SH
    QString exchange;  ///< market code of the row; decides the exchange rate of a Hong Kong security
    QString direction; ///< as it is sent: Buy, Sell, BuyOpen, …, or Buy/Sell
    double quantity = 0.0;
    double limitPrice = 0.0;   ///< 0: none
    bool hasZeroLimit = false; ///< a limit price is named, and it is none: 0, or what the import made 0
    double typedAmount = 0.0;  ///< money, where the row names an amount instead of a quantity; else 0
    double amount = 0.0;       ///< money in CNY, filled by valueLegs(); 0: no price was to be had

    /// A direction of neither side counts on both: no ceiling is passed by a text that nobody knows.
    bool buys() const;
    bool sells() const;
    bool hasKnownSide() const;
};

struct InstanceDraft {
    QMap<QString, QVariant> parameters; ///< the parameter map, as the dialog hands it over
    QList<Leg> legs;
    bool startsNow = false; ///< created and started at once
    QDateTime start;        ///< as the row names them; invalid: it does not
    QDateTime end;
};

/// The imported table as it was shown.
struct BatchTable {
    QStringList columns;
    QList<QStringList> rows; ///< shown texts, one list a row, as long as `columns`
};

struct BatchDraft {
    /// Made once, before the first attempt; a draft whose id the ledger knows already is never created again.
    QUuid id;
    QString fileName;
    QString fileSha256; ///< 64 hexadecimal digits; empty when the file was gone
    QString account;
    QString strategy;
    QString createdBy;
    double expectedBuy = 0.0;
    double expectedSell = 0.0;
    bool asksQuantity = true; ///< the strategy has a column of quantities or amounts
    QList<InstanceDraft> instances;
    BatchTable table;
};

/// What makes two rows the same order: strategy, securities, directions, quantities, limit prices and typed
/// amounts; prices of the day and times play no part. SHA-256 in hexadecimal digits.
QString rowKey(const QString& strategy, const InstanceDraft& instance);

} // namespace ledger
