#include "table/HarmlessCell.h"

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
    if (rows.isEmpty() || rows.first().isEmpty() || rows.first().last() != reasonTitle()) {
        return;
    }
    for (QStringList& row : rows) {
        for (QString& cell : row) {
            cell = restoredCell(cell);
        }
    }
}

} // namespace table
