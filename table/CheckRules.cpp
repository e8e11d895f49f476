// The file check. %1 is the text in question, %2 what could be meant instead.

#include "table/CheckRules.h"

#include "table/CatalogueParts.h"

namespace table {

const QList<RuleEntry>& checkRules()
{
    using namespace rule;
    constexpr Severity Error = Severity::Error;
    constexpr Severity Warning = Severity::Warning;
    constexpr Severity Notice = Severity::Notice;
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
        {HiddenColumn, Warning, QStringLiteral("“%1”是隐藏列，但其内容仍会被导入"),
         QStringLiteral("The column \"%1\" is hidden and is imported all the same")},
        {ReplacedText, Warning, QStringLiteral("文件中有%1处字符无法按%2解码"),
         QStringLiteral("%1 places of the file could not be decoded as %2")},
        {LostRows, Error, QStringLiteral("另有 %1 行既未导入，也未列出原因，请核对文件"),
         QStringLiteral("%1 more rows were neither imported nor given a reason; check the file")},
        {UnknownCodePage, Error,
         QStringLiteral("文件的文字用代码页%1保存，无法识别，除英文和数字外都可能是错的"),
         QStringLiteral("The texts of the file are in the unknown code page %1; all but ASCII may be wrong")},
        {ActiveSheet, Warning, QStringLiteral("打开文件时显示的工作表是“%1”，导入读取的却是“%2”"),
         QStringLiteral("The workbook opens on the sheet \"%1\", but \"%2\" is the one that is read")},
        {OtherSheet, Warning, QStringLiteral("工作表“%1”也像是要导入的表格，但导入只读取“%2”"),
         QStringLiteral("The sheet \"%1\" looks like a table to be imported too, but only \"%2\" is read")},
        {SecondTitle, Error, QStringLiteral("表头“%1”与“%2”是同一列，导入只读取“%2”"),
         QStringLiteral("The titles \"%1\" and \"%2\" are one column, of which only \"%2\" is read")},
        {IgnoredTitle, Warning, QStringLiteral("所选算法没有“%1”这一列，其内容将被忽略"),
         QStringLiteral("The chosen strategy has no column \"%1\"; what stands in it will be ignored")},
        {NamelessColumn, Warning, QStringLiteral("%1列没有表头，其中的数字将被忽略"),
         QStringLiteral("Column %1 has no title; the numbers in it will be ignored")},
        {OtherStrategy, Warning, QStringLiteral("表头更符合算法 %2，请核对所选算法（%1）"),
         QStringLiteral("The header fits %2 better than the chosen strategy (%1)")},
        {OrderWithoutCode, Error, QStringLiteral("前两格为空，该行不会导入，但其余各格像是一笔委托"),
         QStringLiteral(
             "The first two cells are empty and the row is passed over, but the others look like an order")},
        {HeaderAgain, Warning, QStringLiteral("该行又是表头"),
         QStringLiteral("The row is the header once more")},
        {TotalRow, Warning, QStringLiteral("该行像是合计"), QStringLiteral("The row looks like a total")},
        {SameOrder, Warning, QStringLiteral("与第%1行是同样的委托"),
         QStringLiteral("The same order as on line %1")},
        {StruckRow, Warning, QStringLiteral("该行已划掉，但仍会被导入"),
         QStringLiteral("The row is struck out and is imported all the same")},
        {Uncalculated, Error, QStringLiteral("公式没有计算结果，导入按空值处理；请在电子表格中打开并保存"),
         QStringLiteral("The formula has no stored result and counts as empty; open and save the file in a "
                        "spreadsheet")},
        {ShownOtherwise, Error, QStringLiteral("单元格显示“%2”，导入取“%1”"),
         QStringLiteral("The cell shows \"%2\", the import takes \"%1\"")},
        {NoFreeNumber, Error, QStringLiteral("“%1”不是数字，将原样提交"),
         QStringLiteral("\"%1\" is no number and will be handed on as it stands")},
        {BelowZero, Error, QStringLiteral("“%1”小于0"), QStringLiteral("\"%1\" is below 0")},
        {ZeroNumber, Error, QStringLiteral("“%1”应大于0"), QStringLiteral("\"%1\" must be above 0")},
        {NoPercent, Error, QStringLiteral("“%1”不在0到100之间"),
         QStringLiteral("\"%1\" is not within 0 and 100")},
        {SmallShare, Warning, QStringLiteral("“%1”表示百分之%1，是否应为%2"),
         QStringLiteral("\"%1\" means %1 per cent; was it meant to be %2?")},
        {PointForGroups, Error, QStringLiteral("“%1”的小数部分将被舍去，是否应为%2"),
         QStringLiteral("The fraction of \"%1\" will be cut off; was it meant to be %2?")},
        {SmallAmount, Warning, QStringLiteral("金额“%1”元太小，单位是否应为万，即%2"),
         QStringLiteral("The amount \"%1\" is small; was it meant in ten thousands, that is %2?")},
        {OddRate, Warning, QStringLiteral("“%1”不像回购利率，是否应为%2"),
         QStringLiteral("\"%1\" is an odd rate for a repurchase; was it meant to be %2?")},
        {RoundedPrice, Notice, QStringLiteral("“%1”的小数位多于最小价位，导入取“%2”"),
         QStringLiteral("\"%1\" has more decimals than a price of this security; the import takes \"%2\"")},
        {NoWholeLot, Warning, QStringLiteral("委托数量“%1”不是交易单位的整数倍，是否应为%2"),
         QStringLiteral("The quantity \"%1\" is no multiple of the lot; was it meant to be %2?")},
        {OddLotSold, Notice, QStringLiteral("卖出数量“%1”含零股"),
         QStringLiteral("The quantity \"%1\" sells an odd lot")},
        {OtherName, Warning, QStringLiteral("证券名称“%1”与代码不符，该代码是%2"),
         QStringLiteral("The name \"%1\" is not that of the code, which is %2")},
        {LostChoice, Error, QStringLiteral("“%1”不在该算法的取值之内，导入后为空"),
         QStringLiteral("\"%1\" is no choice of this strategy and becomes empty")},
        {EmptyByMerge, Error, QStringLiteral("该格在%2起的合并单元格内，“%1”只属于首行，本行按空值处理"),
         QStringLiteral(
             "The cell is merged with %2; \"%1\" belongs to the first row alone, this one counts as empty")},
    };
    return rules;
}

} // namespace table
