// The file check. %1 is the text in question, %2 what could be meant instead.

#include "table/CheckRules.h"

#include "table/CatalogueParts.h"

namespace table {

const QList<RuleEntry>& checkRules()
{
    using namespace rule;
    constexpr Severity Error = Severity::Error;
    constexpr Severity Warning = Severity::Warning;
    static const QList<RuleEntry> rules = {
        {UnreadableFile, Error, QStringLiteral("%1"), QString()}, // in the words of the reader
        {UnknownTitle, Warning, QStringLiteral("表头“%1”不是该策略的列，将被忽略"),
         QStringLiteral("The title \"%1\" is no column of the strategy and will be ignored")},
        {NearTitle, Error, QStringLiteral("表头“%1”不是该策略的列，是否应为“%2”"),
         QStringLiteral("The title \"%1\" is no column of the strategy; did you mean \"%2\"?")},
        {RepeatedTitle, Error, QStringLiteral("表头“%1”出现了不止一次"),
         QStringLiteral("The title \"%1\" occurs more than once")},
        {LostZeros, Error, QStringLiteral("证券代码“%1”可能丢失了前面的零，可能是：%2"),
         QStringLiteral("The code \"%1\" seems to have lost its leading zeros; it could be: %2")},
        {ExponentForm, Error, QStringLiteral("“%1”是科学计数法，原来的数字可能已经丢失"),
         QStringLiteral("\"%1\" is in exponent form; its digits may be lost")},
        {LostDigits, Warning, QStringLiteral("“%1”超过15位有效数字，电子表格只能保留15位"),
         QStringLiteral("\"%1\" has more than the 15 digits that a spreadsheet keeps")},
        {NoNumber, Error, QStringLiteral("“%1”不是数字，将按0处理"),
         QStringLiteral("\"%1\" is no number and will be taken as 0")},
        {NoPrice, Error, QStringLiteral("“%1”不是数字，将按0处理，即不限价"),
         QStringLiteral("\"%1\" is no number and will be taken as 0, which means no limit")},
        {OutOfRange, Error, QStringLiteral("“%1”超出数值范围，将变成另一个数"),
         QStringLiteral("\"%1\" is out of range and will become another number")},
        {LostFraction, Warning, QStringLiteral("“%1”的小数部分将被舍去"),
         QStringLiteral("The fraction of \"%1\" will be cut off")},
        {NegativeNumber, Warning, QStringLiteral("“%1”是负数"), QStringLiteral("\"%1\" is negative")},
        {InvisibleBlank, Warning, QStringLiteral("“%1”含有看不见的空白字符"),
         QStringLiteral("\"%1\" holds blanks that cannot be seen")},
        {FullWidthDigit, Warning, QStringLiteral("“%1”含有全角数字"),
         QStringLiteral("\"%1\" holds full-width digits")},
        {HiddenByMerge, Warning, QStringLiteral("“%1”被合并单元格遮住，但仍会被导入"),
         QStringLiteral("\"%1\" is hidden under a merged cell and is imported all the same")},
        {HiddenRow, Warning, QStringLiteral("该行是隐藏行，但仍会被导入"),
         QStringLiteral("The row is hidden and is imported all the same")},
        {ReplacedText, Warning, QStringLiteral("文件中有%1处字符无法按%2解码"),
         QStringLiteral("%1 places of the file could not be decoded as %2")},
        {LostRows, Error, QStringLiteral("另有 %1 行既未导入，也未列出原因，请核对文件"),
         QStringLiteral("%1 more rows were neither imported nor given a reason; check the file")},
        {UnknownCodePage, Error,
         QStringLiteral("文件的文字用代码页%1保存，无法识别，除英文和数字外都可能是错的"),
         QStringLiteral("The texts of the file are in the unknown code page %1; all but ASCII may be wrong")},
    };
    return rules;
}

} // namespace table
