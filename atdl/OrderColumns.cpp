#include "atdl/OrderColumns.h"

#include "host/AlgoConstants.h"

namespace atdl {

namespace {

namespace Field = Algo_Fields::AlgoParamFields;
namespace Info = Algo_Fields::AlgoInstContentInfo;
namespace Ui = Algo_Values::AlgoParamUiType;

QJsonObject plainColumn(const QString& name, bool isRequired)
{
    return {{Field::paramId, name},
            {Field::paramName, name},
            {Field::required, isRequired},
            {Field::strDefault, QJsonObject{{Field::display, QString()}, {Field::value, QString()}}},
            {Field::ui, Ui::LineEdit},
            {Field::visible, true}};
}

QJsonObject option(const QString& shown, const QString& value)
{
    return {{Field::display, shown}, {Field::value, value}};
}

} // namespace

QJsonArray orderColumns()
{
    const QJsonObject table = {
        {Field::paramId, Algo_Values::AlgoParamId::AlgoSecurityList},
        {Field::paramName, QStringLiteral("证券列表")},
        {Field::ui, Ui::Table},
        {Field::columns, QJsonArray{plainColumn(Info::Symbol, true), plainColumn(Info::Quantity, true)}}};
    QJsonObject direction = plainColumn(Algo_Values::AlgoParamId::traderOrder, true);
    direction.insert(Field::ui, Ui::ComboBox);
    direction.insert(Field::options,
                     QJsonArray{option(QStringLiteral("买入"), Algo_Values::AlgoOrderSide::BuyValue),
                                option(QStringLiteral("卖出"), Algo_Values::AlgoOrderSide::SellValue)});
    return {table, direction, plainColumn(Info::PriceLimits, false)};
}

QJsonObject remarkColumn()
{
    return plainColumn(Remark, false);
}

} // namespace atdl
