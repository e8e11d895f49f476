#pragma once

#include "ledger/values/Decimal.h"

#include <QDateTime>
#include <QJsonArray>
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
    QString symbol;            ///< such as 600000.SH
    QString exchange;          ///< market code of the row; decides the exchange rate of a Hong Kong security
    QString direction;         ///< as it is sent: Buy, Sell, BuyOpen, …, or Buy/Sell
    Decimal quantity;          ///< its size; see isNegative
    Decimal limitPrice;        ///< 0: none
    bool hasZeroLimit = false; ///< a limit price is named, and it is none: 0, or what the import made 0
    bool isNegative = false;   ///< quantity, limit price or amount has a minus sign
    Decimal typedAmount;       ///< money, where the row names an amount instead of a quantity; else 0
    Decimal amount;            ///< money in CNY, filled by valueLegs(); 0: no price was to be had
    Decimal filledQuantity;    ///< of a pair, in the ledger
    Decimal averagePrice;

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
    Decimal participation; ///< per cent of the market that the row may take part with; 0: it names none
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
    /// What was changed on the desk after the file was read, in the order in which it was done: objects with
    /// a key "edit". The ledger keeps them and reads nothing in them.
    QJsonArray fileEdits;
    QString account;
    QString strategy;
    QString createdBy;
    Decimal expectedBuy;
    Decimal expectedSell;
    bool asksQuantity = true; ///< the strategy has a column of quantities or amounts
    QList<InstanceDraft> instances;
    BatchTable table;
};

/// CNY that a draft buys and sells for; its legs have their amounts.
struct Gross {
    Decimal buy;
    Decimal sell;
};
Gross grossOf(const QList<InstanceDraft>& instances);

/// What makes two rows the same order: strategy, securities, directions, quantities, limit prices and typed
/// amounts; prices of the day and times play no part. SHA-256 in hexadecimal digits.
QString rowKey(const QString& strategy, const InstanceDraft& instance);

} // namespace ledger
