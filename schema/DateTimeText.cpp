#include "schema/DateTimeText.h"

#include "schema/DateTimeFormat.h"

namespace schema {

namespace {

/// Takes a text apart from its beginning; once something did not fit, nothing fits.
class Scanner {
public:
    explicit Scanner(const QString& text) : mText(text) {}

    int number(int fewestDigits, int mostDigits)
    {
        int value = 0;
        int digits = 0;
        for (; digits < mostDigits && mAt < mText.size(); ++digits, ++mAt) {
            const int digit = mText.at(mAt).unicode() - u'0';
            if (digit < 0 || digit > 9) {
                break;
            }
            value = value * 10 + digit;
        }
        mFits = mFits && digits >= fewestDigits;
        return value;
    }

    void sign(QChar wanted)
    {
        mFits = mFits && mAt < mText.size() && mText.at(mAt) == wanted;
        ++mAt;
    }

    bool isAtEnd() const { return mFits && mAt == mText.size(); }

private:
    const QString& mText;
    int mAt = 0;
    bool mFits = true;
};

/// Invalid where the text is not in its plain form.
QDateTime plainDateTime(const QString& text, QChar separator, bool hasFraction)
{
    Scanner scanner(text);
    const int year = scanner.number(4, 4);
    scanner.sign(QLatin1Char('-'));
    const int month = scanner.number(1, 2);
    scanner.sign(QLatin1Char('-'));
    const int day = scanner.number(1, 2);
    scanner.sign(separator);
    const int hour = scanner.number(1, 2);
    scanner.sign(QLatin1Char(':'));
    const int minute = scanner.number(1, 2);
    scanner.sign(QLatin1Char(':'));
    const int second = scanner.number(1, 2);
    if (hasFraction) {
        scanner.sign(QLatin1Char('.'));
        scanner.number(1, 3);
    }
    const QDate date(year, month, day);
    const QTime time(hour, minute, second);
    return scanner.isAtEnd() && date.isValid() && time.isValid() ? QDateTime(date, time) : QDateTime();
}

/// SentDateTimeFormat, written down.
QString sentText(const QDateTime& dateTime)
{
    const QDate date = dateTime.date();
    const QTime time = dateTime.time();
    QString text = QStringLiteral("0000-00-00 00:00:00");
    const auto put = [&text](int end, int number) {
        for (; number > 0; number /= 10) {
            text[--end] = QChar(u'0' + number % 10);
        }
    };
    put(4, date.year());
    put(7, date.month());
    put(10, date.day());
    put(13, time.hour());
    put(16, time.minute());
    put(19, time.second());
    return text;
}

} // namespace

QString sentDateTimeIn(const QString& text, const QString& layout)
{
    QDateTime plain;
    if (layout == TypedDateTimeFormat) {
        plain = plainDateTime(text, QLatin1Char(' '), false);
    } else if (layout == SheetDateTimeFormat) {
        plain = plainDateTime(text, QLatin1Char('T'), true);
    }
    // What is not plain may yet be a date and time to Qt, which also knows the hours that summer time skips.
    return plain.isValid() ? sentText(plain) : sentDateTime(QDateTime::fromString(text, layout));
}

} // namespace schema
