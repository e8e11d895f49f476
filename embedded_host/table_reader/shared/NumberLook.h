#pragma once

#include <QString>
#include <QStringList>
#include <QVector>

#include <optional>

namespace table_reader {

/// How a spreadsheet shows plain numbers under a format's code: rounded, in per cent, with a word behind.
/// Knows nothing of dates and fractions.
///
///     NumberLook("0.0%").shown(0.15)          // 15.0%
///     NumberLook("#,##0\"手\"").shown(2499.6)  // 2,500手
class NumberLook {
public:
    NumberLook() = default;
    explicit NumberLook(const QString& code);

    /// Nothing where the number is shown as it is, or in a way that is not known here.
    std::optional<QString> shown(double value) const;

private:
    enum class Kind : quint8 { Literal, Digit, Point, Exponent, General };
    struct Token {
        Kind kind;
        QString text; ///< of a literal; of a digit its letter: 0, # or ?
    };
    struct Section {
        QVector<Token> tokens;
        bool isKnown = true;
        bool isGrouped = false;
        int hundreds = 0;  ///< per cent signs
        int thousands = 0; ///< commas behind the last digit
        int decimals = 0;
        bool hasExponent = false;
        QChar comparison; ///< of a condition: <, > or =; null: none
        bool orEqual = false;
        double limit = 0;

        bool accepts(double value) const;
        QString shown(double magnitude) const;
        QString fixed(double scaled, double magnitude) const;
        QString beforePoint(int point, QString whole, double magnitude) const;
        QString fromPoint(int point, const QString& fraction) const;
    };
    class Parser;
    const Section* sectionFor(double value, bool& showsSign) const;

    QVector<Section> mSections; ///< empty: General
};

/// The code of a format that every workbook has by its number; empty where it shows numbers as they are, or
/// dates.
QString builtInCode(int number);

/// Whether a shown text says another number than this. Group separators, currency signs, blanks and what is
/// lost behind nine digits do not count.
bool saysOtherwise(const QString& shown, double value);

} // namespace table_reader
