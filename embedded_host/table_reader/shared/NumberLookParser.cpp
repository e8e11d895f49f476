#include "embedded_host/table_reader/shared/NumberLookParser.h"

#include "embedded_host/table_reader/shared/NumberText.h"

#include <algorithm>

namespace table_reader {
namespace {

bool isOneOf(QChar c, QLatin1String characters)
{
    return std::any_of(characters.begin(), characters.end(), [c](char one) { return c == QLatin1Char(one); });
}

} // namespace

QVector<NumberLook::Section> NumberLook::Parser::parse()
{
    QVector<Section> sections;
    for (; mAt < mCode.size(); ++mAt) {
        if (mCode.at(mAt) == QLatin1Char(';')) {
            sections.append(mSection);
            mSection = Section();
            mAfterPoint = false;
            mHasDigit = false;
        } else {
            take(mCode.at(mAt));
        }
    }
    sections.append(mSection);
    return sections;
}

void NumberLook::Parser::take(QChar c)
{
    if (isOneOf(c, QLatin1String("0#?"))) {
        takeDigit(c);
    } else if (c == QLatin1Char('.')) {
        mAfterPoint = true;
        add(Kind::Point);
    } else if (c == QLatin1Char(',')) {
        takeComma();
    } else if (c == QLatin1Char('%')) {
        ++mSection.hundreds;
        addLiteral(QStringLiteral("%"));
    } else if (c == QLatin1Char('"')) {
        ++mAt;
        addLiteral(upTo(QLatin1Char('"')));
    } else if (c == QLatin1Char('\\') || c == QLatin1Char('!')) {
        addLiteral(mCode.mid(++mAt, 1));
    } else if (c == QLatin1Char('_') || c == QLatin1Char('*')) {
        ++mAt; // a blank as wide as the next character, or the next character as often as there is room
    } else if (c == QLatin1Char('[')) {
        takeBracket();
    } else if ((c == QLatin1Char('E') || c == QLatin1Char('e')) && mHasDigit) {
        takeExponent();
    } else if (c.unicode() < 0x80 && c.isLetter()) {
        takeWord();
    } else if (c == QLatin1Char('/') || c == QLatin1Char('@')) {
        mSection.isKnown = false; // a fraction, or a text
    } else {
        addLiteral(QString(c));
    }
}

QString NumberLook::Parser::upTo(QChar end)
{
    const int found = mCode.indexOf(end, mAt);
    const int stop = found < 0 ? mCode.size() : found;
    const QString text = mCode.mid(mAt, stop - mAt);
    mAt = stop;
    return text;
}

/// [Red], [$¥-804], [>=10000]; what changes the digits themselves is not known.
void NumberLook::Parser::takeBracket()
{
    ++mAt;
    const QString bracket = upTo(QLatin1Char(']'));
    if (bracket.startsWith(QLatin1Char('$'))) {
        addLiteral(bracket.mid(1).section(QLatin1Char('-'), 0, 0));
    } else if (bracket.startsWith(QLatin1String("DBNum"), Qt::CaseInsensitive)) {
        mSection.isKnown = false;
    } else if (!bracket.isEmpty() && isOneOf(bracket.at(0), QLatin1String("<>="))) {
        takeCondition(bracket);
    }
}

void NumberLook::Parser::takeCondition(const QString& bracket)
{
    const int operatorLength = bracket.size() > 1 && isOneOf(bracket.at(1), QLatin1String("=>")) ? 2 : 1;
    const std::optional<double> limit = parseNumber(bracket.midRef(operatorLength));
    const bool isUnequal = bracket.startsWith(QLatin1String("<>"));
    mSection.isKnown = mSection.isKnown && limit && !isUnequal;
    mSection.comparison = bracket.at(0);
    mSection.orEqual = operatorLength == 2 || bracket.at(0) == QLatin1Char('=');
    mSection.limit = limit.value_or(0);
}

bool NumberLook::Parser::nextIsDigit() const
{
    return mAt + 1 < mCode.size() && isOneOf(mCode.at(mAt + 1), QLatin1String("0#?"));
}

/// Between digits it groups them; behind the last one it takes three away.
void NumberLook::Parser::takeComma()
{
    if (!mHasDigit) {
        addLiteral(QStringLiteral(","));
    } else if (nextIsDigit()) {
        mSection.isGrouped = true;
    } else {
        ++mSection.thousands;
    }
}

void NumberLook::Parser::takeDigit(QChar c)
{
    mHasDigit = true;
    mSection.decimals += mAfterPoint && !mSection.hasExponent ? 1 : 0;
    if (!mSection.hasExponent) {
        add(Kind::Digit, QString(c));
    }
}

void NumberLook::Parser::takeExponent()
{
    const bool hasSign = mAt + 1 < mCode.size() && isOneOf(mCode.at(mAt + 1), QLatin1String("+-"));
    mSection.isKnown = mSection.isKnown && hasSign;
    mSection.hasExponent = true;
    add(Kind::Exponent);
    ++mAt;
}

void NumberLook::Parser::takeWord()
{
    const QLatin1String general("General");
    if (mCode.midRef(mAt, general.size()).compare(general, Qt::CaseInsensitive) == 0) {
        add(Kind::General);
        mAt += general.size() - 1;
    } else {
        mSection.isKnown = false; // of dates
    }
}

} // namespace table_reader
