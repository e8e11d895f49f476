#include "table/HarmlessCell.h"

#include <algorithm>

namespace table {
namespace {

constexpr QLatin1Char Apostrophe('\'');

bool beginsLikeFormula(const QString& text, int at)
{
    return at < text.size() && QStringLiteral("=+-@\t\r\n＝＋－＠").contains(text.at(at));
}

/// -5, +3.5, -.5e3: a sign, then nothing but a number.
bool isSignedNumber(const QString& text)
{
    bool isNumber = false;
    text.toDouble(&isNumber);
    const QChar second = text.size() > 1 ? text.at(1) : QChar();
    return isNumber && ((second >= u'0' && second <= u'9') || second == u'.');
}

/// By its title of reasons, or by a title that nobody else would write so.
bool isOurs(const QStringList& header)
{
    const auto isMadeHarmless = [](const QString& title) { return restoredCell(title) != title; };
    return (!header.isEmpty() && header.last() == reasonTitle()) ||
           std::any_of(header.begin(), header.end(), isMadeHarmless);
}

} // namespace

QString reasonTitle()
{
    return QStringLiteral("错误原因");
}

QString harmlessCell(const QString& text)
{
    int apostrophes = 0;
    while (apostrophes < text.size() && text.at(apostrophes) == Apostrophe) {
        ++apostrophes;
    }
    const bool isFormula = beginsLikeFormula(text, apostrophes) && (apostrophes > 0 || !isSignedNumber(text));
    return isFormula ? Apostrophe + text : text;
}

QString restoredCell(const QString& text)
{
    return text.startsWith(Apostrophe) && harmlessCell(text.mid(1)) == text ? text.mid(1) : text;
}

void restoreCells(QList<QStringList>& rows)
{
    if (rows.isEmpty() || !isOurs(rows.first())) {
        return;
    }
    for (QStringList& row : rows) {
        for (QString& cell : row) {
            cell = restoredCell(cell);
        }
    }
}

} // namespace table
