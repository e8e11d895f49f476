// Our own reading of date-times is Qt's, only faster: held equal on texts that are nearly or quite right.

#include "schema/DateTimeText.h"

#include "schema/DateTimeFormat.h"
#include "tests/support/Text.h"

#include <gtest/gtest.h>

#include <random>

namespace {

using Random = std::mt19937;

int below(Random& random, int end)
{
    return std::uniform_int_distribution<int>(0, end - 1)(random);
}

/// Mostly a number within its bounds, with or without a leading zero; now and then beyond them, or of too
/// many or too few digits.
QString number(Random& random, int most, int width)
{
    switch (below(random, 40)) {
    case 0:
        return QString::number(below(random, 10000));
    case 1:
        return QString();
    case 2:
        return QString::number(most + below(random, 3));
    default:
        const int value = below(random, most + 1);
        return below(random, 2) == 0 ? QString::number(value)
                                     : QStringLiteral("%1").arg(value, width, 10, QLatin1Char('0'));
    }
}

QString sign(Random& random, char usual)
{
    static const QString others = QStringLiteral(" -:.T/,x+٣\t");
    return below(random, 60) == 0 ? QString(others.at(below(random, others.size())))
                                  : QString(QLatin1Char(usual));
}

QString randomText(Random& random)
{
    const bool isSheet = below(random, 2) == 0;
    QString text = QStringLiteral("%1").arg(
        below(random, 20) == 0 ? below(random, 10000) : 1900 + below(random, 200), 4, 10, QLatin1Char('0'));
    text += sign(random, '-') + number(random, 12, 2) + sign(random, '-') + number(random, 31, 2);
    text += sign(random, isSheet ? 'T' : ' ') + number(random, 23, 2) + sign(random, ':');
    text += number(random, 59, 2) + sign(random, ':') + number(random, 59, 2);
    text += isSheet ? sign(random, '.') + number(random, 999, 3) : QString();
    return below(random, 50) == 0 ? text + sign(random, ' ') : text;
}

} // namespace

/// Texts by a seed; ALGO_DATE_TEXTS says how many, where the usual ones are not enough.
TEST(DateTimeText, IsWhatQtMakesOfIt)
{
    const int texts = std::max(20000, qEnvironmentVariableIntValue("ALGO_DATE_TEXTS"));
    Random random(20240305);
    int taken = 0;
    for (int i = 0; i < texts; ++i) {
        const QString text = randomText(random);
        const QString layout = i % 2 == 0 ? schema::TypedDateTimeFormat : schema::SheetDateTimeFormat;
        const QString qts = schema::sentDateTime(QDateTime::fromString(text, layout));
        ASSERT_EQ(schema::sentDateTimeIn(text, layout), qts) << qPrintable(text) << " " << qPrintable(layout);
        taken += qts.isEmpty() ? 0 : 1;
    }
    EXPECT_GT(taken, texts / 8); // it is about texts that are date-times, too
    EXPECT_LT(taken, texts - texts / 8);
}
