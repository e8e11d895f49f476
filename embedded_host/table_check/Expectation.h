#pragma once

#include <QList>
#include <QMap>
#include <QSet>
#include <QString>
#include <QStringList>

#include <functional>
#include <optional>

namespace table_lint {

/// What the import makes of a cell that must be a number.
enum class NumberKind {
    Whole,    ///< cut off behind the point; 0 where it is no number
    Amount,   ///< money; 0 where it is no number
    Price,    ///< 0 where it is no number, which means: no limit
    Percent,  ///< 0 to 100, handed on as it stands
    Share,    ///< per cent of the market, likewise; below 1 hardly anybody means it
    Free,     ///< handed on as it stands, and never below 0
    Positive, ///< likewise, and never 0
    Signed,   ///< handed on as it stands
};

/// What the reference data knows of the security of a row.
struct KnownSecurity {
    QString symbol;
    QString name;
    int leastQuantity = 0; ///< 0: not known
    int quantityStep = 0;
    int precision = 2;       ///< decimals of its prices
    bool isBondRepo = false; ///< its prices are rates in per cent
    bool hasOddLots = false; ///< what is left below a lot may be sold
};

/// What the import knows, for comparison.
struct Expectation {
    QStringList titles; ///< the table's columns; empty: titles are not compared
    /// Title that a file may use -> column title; read in both directions, as the import does.
    QMap<QString, QString> aliases;
    QString codeTitle; ///< the column of security codes, such as 证券代码; empty: none
    /// The securities with exactly this code, as the user should see them ("000001.SZ 平安银行"); may be
    /// null.
    std::function<QStringList(const QString& code)> securities;
    /// The security that the import finds for a code and a market as typed; may be null.
    std::function<std::optional<KnownSecurity>(const QString& code, const QString& market)> security;
    /// Titles under which a file may have columns of numbers, aliases among them.
    QMap<QString, NumberKind> numbers;
    bool pairedPrices = false; ///< a price cell may hold one price for each of two legs: 9.8/9.9
    /// Column title -> typed texts that the import accepts and sends as nothing.
    QMap<QString, QSet<QString>> lostTexts;
    /// Those of other strategies, "AITWAP 智能TWAP" -> the titles of its table; null: not compared.
    std::function<QMap<QString, QStringList>()> otherStrategies;

    /// The column that a file's title stands for; empty where the table has none.
    QString columnOf(const QString& title) const;
};

} // namespace table_lint
