// Rows and headers, in the exact words of the dialog.

#include "table/CatalogueParts.h"
#include "table/Rules.h"

namespace table {

const QList<RuleEntry>& importRules()
{
    constexpr Severity error = Severity::Error;
    static const QList<RuleEntry> rules = {
        {rule::ReaderError, error, QStringLiteral("%1"), {}},
        {rule::ReadFailed, error, QStringLiteral("文件读取失败"), {}},
        {rule::EmptyTable, error, QStringLiteral("导入文件的表格内容为空！"), {}},
        {rule::MissingColumn, error, QStringLiteral("导入文件表头缺少“%1”列！"), {}},
        {rule::NoDataRows, error, QStringLiteral("导入文件的表格内容缺少数据！"), {}},
        {rule::NoHongKong, error, QStringLiteral("该算法不支持港股标的！"), {}},

        {rule::UnknownCode, error, QStringLiteral("证券代码%1不合法，未获取到市场"), {}},
        {rule::MarketMismatch,
         error,
         QStringLiteral("当前资产账号所属市场与标的%2市场存在不一致，请检查！"),
         {}},
        {rule::BadCreateStatus,
         error,
         QStringLiteral("%1不支持，目前支持：0-创建不启动，7-创建并立即启动"),
         {}},
        {rule::NoSealingQuantity, error, QStringLiteral("封单数量计算为0"), {}},
        {rule::NoOrderQuantity, error, QStringLiteral("委托数量计算为0"), {}},
        {rule::EmptyCells, error, QStringLiteral("导入“%1”列值为空"), {}},
        {rule::NotSupported, error, QStringLiteral("%1不支持，目前支持：%2"), {}},
        {rule::BadDateTime, error, QStringLiteral("%1格式不正确，时间格式为%2"), {}},
        // The dialog drops the row without a word of why.
        {rule::ReservedText, error, QString(), {}},
        {rule::BadPairedFields, error, QStringLiteral("导入方向、委托属性、限价中，某字段格式错误"), {}},
    };
    return rules;
}

} // namespace table
