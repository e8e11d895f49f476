#include "embedded_host/table_reader/shared/NumberFormat.h"

#include <algorithm>

namespace table_reader {
namespace {

struct BuiltIn {
    int first;
    int last;
    NumberFormat format;
};

constexpr BuiltIn BuiltIns[] = {
    {14, 17, NumberFormat::Date},    // m/d/yy, d-mmm-yy, d-mmm, mmm-yy
    {18, 21, NumberFormat::Time},    // h:mm and its kin
    {22, 22, NumberFormat::Date},    // m/d/yy h:mm
    {27, 31, NumberFormat::Date},    // yyyy"年"m"月" and its kin
    {32, 35, NumberFormat::Time},    // h"时"mm"分" and its kin
    {36, 36, NumberFormat::Date},    // yyyy"年"m"月"
    {45, 45, NumberFormat::Time},    // mm:ss
    {46, 46, NumberFormat::Elapsed}, // [h]:mm:ss
    {47, 47, NumberFormat::Time},    // mm:ss.0
    {50, 54, NumberFormat::Date},    // yyyy"年"m"月" and its kin
    {55, 56, NumberFormat::Time},    // 上午/下午h"时"mm"分" and its kin
    {57, 58, NumberFormat::Date},    // yyyy"年"m"月", m"月"d"日"
};

/// [h], [mm], [ss] run on beyond a day; other brackets hold colours, conditions, currencies and languages.
bool isElapsed(const QStringRef& bracket)
{
    const QChar first = bracket.isEmpty() ? QChar() : bracket.at(0).toLower();
    if (first != QLatin1Char('h') && first != QLatin1Char('m') && first != QLatin1Char('s')) {
        return false;
    }
    for (const QChar c : bracket) {
        if (c.toLower() != first) {
            return false;
        }
    }
    return true;
}

struct Letters {
    bool day = false; ///< y or d
    bool month = false;
    bool clock = false; ///< h or s
    bool elapsed = false;
    bool eastern = false; ///< e or b alone, a year; aaa or aaaa, a day of the week
    bool digits = false;  ///< 0, # or ?, as in 0.00E+00: then those letters mean something else

    void note(QChar character)
    {
        switch (character.toLower().unicode()) {
        case u'y':
        case u'd':
            day = true;
            break;
        case u'm':
            month = true; // or minutes, beside h or s
            break;
        case u'h':
        case u's':
            clock = true;
            break;
        case u'0':
        case u'#':
        case u'?':
            digits = true;
            break;
        }
    }

    /// Letters that stand together, such as yyyy, AM or General.
    void noteRun(const QStringRef& run)
    {
        const QChar first = run.at(0).toLower();
        const bool isOneLetter =
            std::all_of(run.begin(), run.end(), [first](QChar c) { return c.toLower() == first; });
        constexpr int ShortestWeekday = 3;
        eastern = eastern || (isOneLetter && (first == u'e' || first == u'b' ||
                                              (first == u'a' && run.size() >= ShortestWeekday)));
        for (const QChar letter : run) {
            note(letter);
        }
    }
};

int endOfRun(const QString& code, int at)
{
    const auto isLetter = [](QChar c) {
        return (c.unicode() | 0x20) >= u'a' && (c.unicode() | 0x20) <= u'z';
    };
    return static_cast<int>(std::find_if_not(code.begin() + at, code.end(), isLetter) - code.begin());
}

int endOf(const QString& code, int begin, QChar closing)
{
    const int end = code.indexOf(closing, begin);
    return end < 0 ? code.size() : end;
}

Letters lettersOf(const QString& code)
{
    Letters letters;
    for (int at = 0; at < code.size() && code.at(at) != QLatin1Char(';'); ++at) {
        switch (code.at(at).unicode()) {
        case u'"':
            at = endOf(code, at + 1, QLatin1Char('"'));
            break;
        case u'\\': // the next character stands for itself
        case u'_':  // a blank as wide as the next character
        case u'*':  // the next character fills the cell
            ++at;
            break;
        case u'[': {
            const int end = endOf(code, at + 1, QLatin1Char(']'));
            letters.elapsed = letters.elapsed || isElapsed(code.midRef(at + 1, end - at - 1));
            at = end;
            break;
        }
        default:
            if (const int end = endOfRun(code, at); end > at) {
                letters.noteRun(code.midRef(at, end - at));
                at = end - 1;
            } else {
                letters.note(code.at(at));
            }
        }
    }
    return letters;
}

} // namespace

NumberFormat builtInFormat(int number)
{
    for (const BuiltIn& builtIn : BuiltIns) {
        if (number >= builtIn.first && number <= builtIn.last) {
            return builtIn.format;
        }
    }
    return NumberFormat::Plain;
}

NumberFormat customFormat(const QString& code)
{
    // "Standard" is what General is called in some languages; its letters would tell a date.
    if (code.compare(QLatin1String("Standard"), Qt::CaseInsensitive) == 0) {
        return NumberFormat::Plain;
    }
    const Letters letters = lettersOf(code);
    const bool isDay = letters.day || (letters.eastern && !letters.digits);
    if (isDay || (letters.month && !letters.clock && !letters.elapsed)) {
        return NumberFormat::Date;
    }
    if (letters.elapsed) {
        return NumberFormat::Elapsed;
    }
    return letters.clock ? NumberFormat::Time : NumberFormat::Plain;
}

QVector<NumberFormat> formatsOf(const QVector<int>& numbers, const QHash<int, NumberFormat>& custom)
{
    QVector<NumberFormat> formats;
    formats.reserve(numbers.size());
    for (const int number : numbers) {
        const auto own = custom.constFind(number);
        formats.append(own == custom.cend() ? builtInFormat(number) : *own);
    }
    return formats;
}

} // namespace table_reader
