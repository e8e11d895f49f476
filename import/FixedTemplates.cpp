// Messages that name a column of a fixed template by its position.

#include "dialog/AlgoBatchImportParamSetting.h"
#include "strategy/Traits.h"

namespace {

const QChar TitleSeparator = QLatin1Char('|');
const QString EmptyColumn = QStringLiteral("%1、");
const QString LackingColumn = QStringLiteral("导入文件表头缺少“%1”列");

const QString GeneralTitles = QStringLiteral("证券代码|证券名称|市场|委托数量|交易方向|委托限价|单笔最大|"
                                             "委托间隔|扫盘比例(%)|委托档位|撤单时间|开始时间|"
                                             "结束时间|委托属性|备注|创建后是否立即启动");
const QString VwapTitles = QStringLiteral("证券代码|证券名称|市场|委托数量|交易方向|委托限价|算法开始时间|"
                                          "算法过期时间|委托属性|最大市场占比|风格参数|"
                                          "涨停不卖跌停不买|备注|创建后是否立即启动");

const QString SecondVwapTitles = QStringLiteral("证券代码|证券名称|市场|委托数量|交易方向|限价|算法开始时间|"
                                                "算法过期时间|委托属性|最大市场占比|风格参数|"
                                                "涨停不卖跌停不买|实例备注|创建后是否立即启动");

struct FixedTemplate {
    QString titles;
    strategy::Trait trait; ///< of the strategies whose columns the messages name by it
};

const QList<FixedTemplate>& fixedTemplates()
{
    static const QList<FixedTemplate> templates = {{GeneralTitles, strategy::GeneralTitles},
                                                   {VwapTitles, strategy::VwapTitles},
                                                   {SecondVwapTitles, strategy::None}};
    return templates;
}

QStringList templateTitles(const QString& code)
{
    const strategy::Traits traits = strategy::traitsOf(code);
    for (const FixedTemplate& fixed : fixedTemplates()) {
        if (traits.has(fixed.trait)) {
            return fixed.titles.split(TitleSeparator);
        }
    }
    return {};
}

/// Empty where the strategy has no fixed template or the template no such column.
QString filledIn(const QString& text, const QString& strategy, int column)
{
    const QStringList titles = templateTitles(strategy);
    return column >= 0 && column < titles.size() ? text.arg(titles.at(column)) : QString();
}

} // namespace

QString AlgoBatchImportParamSetting::importFileColIsEmpty(int column) const
{
    return filledIn(EmptyColumn, mStrategy.name(), column);
}

QString AlgoBatchImportParamSetting::importFileTableHeadLackCol(int column) const
{
    return filledIn(LackingColumn, mStrategy.name(), column);
}
