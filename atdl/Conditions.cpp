#include "atdl/Conditions.h"

#include "atdl/Names.h"
#include "gateway/messages/WireNumber.h"
#include "host/AlgoConstants.h"
#include "words/Words.h"

#include <algorithm>

namespace atdl {

namespace {

using gateway::wire_number::isNumber;
using gateway::wire_number::valueOf;

constexpr int MostLevels = 32;
const QString Exists = QStringLiteral("EX");
const QString Lacks = QStringLiteral("NX");

/// What an Edit names: something of the row, or a constant.
struct Operand {
    QString paramId; ///< empty: a constant
    QString constant;
    Kind kind = Kind::Text;
    const Parameter* parameter = nullptr; ///< null: a field of every order
    bool isSide = false;
};

/// Fields of every order that a row has.
std::optional<Operand> standardField(const QString& name)
{
    Operand operand;
    if (name == QLatin1String("FIX_OrderQty")) {
        operand.paramId = Algo_Fields::AlgoInstContentInfo::Quantity;
        operand.kind = Kind::Number;
    } else if (name == QLatin1String("FIX_Price")) {
        operand.paramId = Algo_Fields::AlgoInstContentInfo::PriceLimits;
        operand.kind = Kind::Number;
    } else if (name == QLatin1String("FIX_Side")) {
        operand.paramId = Algo_Values::AlgoParamId::traderOrder;
        operand.isSide = true;
    } else if (name == QLatin1String("FIX_TimeInForce")) {
        operand.constant = QStringLiteral("0");
    } else {
        return std::nullopt;
    }
    return operand;
}

QJsonObject always(bool holds)
{
    return {{QStringLiteral("always"), holds}};
}

QJsonObject logic(const QString& name, const QJsonArray& of)
{
    return {{QStringLiteral("logic"), name}, {QStringLiteral("of"), of}};
}

bool compares(const QString& operation, int order)
{
    return (operation == QLatin1String("EQ") && order == 0) ||
           (operation == QLatin1String("NE") && order != 0) ||
           (operation == QLatin1String("LT") && order < 0) ||
           (operation == QLatin1String("LE") && order <= 0) ||
           (operation == QLatin1String("GT") && order > 0) ||
           (operation == QLatin1String("GE") && order >= 0);
}

/// One condition on its way; `mWhy` is the first thing that no row can say.
class Condition {
public:
    Condition(const XmlElement& document, const XmlElement& strategy, const QList<Parameter>& parameters)
        : mDocument(document), mStrategy(strategy), mParameters(parameters)
    {
    }

    const QString& why() const { return mWhy; }

    QJsonObject node(const XmlElement& edit, int level = 0)
    {
        if (level > MostLevels) {
            return lost(Words::tr("嵌套过深"));
        }
        if (edit.is(spaces::Validation, QStringLiteral("EditRef"))) {
            return referred(edit.attribute(QStringLiteral("id")), level);
        }
        return edit.has(QStringLiteral("logicOperator")) ? branch(edit, level) : leaf(edit);
    }

private:
    QJsonObject lost(const QString& why)
    {
        mWhy = mWhy.isEmpty() ? why : mWhy;
        return {};
    }

    QJsonObject referred(const QString& id, int level)
    {
        for (const XmlElement* owner : {&mStrategy, &mDocument}) {
            for (const XmlElement& edit : owner->all(spaces::Validation, QStringLiteral("Edit"))) {
                if (edit.attribute(QStringLiteral("id")) == id) {
                    return node(edit, level + 1);
                }
            }
        }
        return lost(Words::tr("没有编号为“%1”的 Edit").arg(id));
    }

    QJsonObject branch(const XmlElement& edit, int level)
    {
        const QString name = edit.attribute(QStringLiteral("logicOperator"));
        static const QStringList known = {QStringLiteral("AND"), QStringLiteral("OR"), QStringLiteral("XOR"),
                                          QStringLiteral("NOT")};
        QJsonArray of;
        for (const XmlElement& child : edit.children) {
            const bool isEdit = child.is(spaces::Validation, QStringLiteral("Edit")) ||
                                child.is(spaces::Validation, QStringLiteral("EditRef"));
            if (isEdit) {
                of.append(node(child, level + 1));
            }
        }
        const bool isSound =
            known.contains(name) && !of.isEmpty() && (name != known.last() || of.size() == 1);
        return isSound ? logic(name, of) : lost(Words::tr("逻辑运算“%1”有误").arg(name));
    }

    std::optional<Operand> operandOf(const QString& name)
    {
        for (const Parameter& one : mParameters) {
            if (one.name == name) {
                Operand operand;
                operand.paramId = one.isConstant() ? QString() : one.paramId;
                operand.constant = one.constant;
                operand.kind = one.kind;
                operand.parameter = &one;
                return operand;
            }
        }
        return standardField(name);
    }

    QJsonObject leaf(const XmlElement& edit)
    {
        const QString operation = edit.attribute(QStringLiteral("operator"));
        const QString field = edit.attribute(QStringLiteral("field"));
        if (field == QLatin1String("FIX_OrdType")) {
            return orderType(operation, edit.attribute(QStringLiteral("value")));
        }
        const std::optional<Operand> left = operandOf(field);
        if (!left) {
            return lost(Words::tr("表中没有“%1”").arg(field));
        }
        if (operation == Exists || operation == Lacks) {
            return left->paramId.isEmpty() ? always(operation == Exists)
                                           : QJsonObject{{QStringLiteral("operator"), operation},
                                                         {QStringLiteral("field"), left->paramId}};
        }
        return edit.has(QStringLiteral("field2"))
                   ? withField(operation, *left, edit.attribute(QStringLiteral("field2")))
                   : withValue(operation, *left, edit.attribute(QStringLiteral("value")));
    }

    /// A row with a limit price goes out as a limit order, one without as a market order.
    QJsonObject orderType(const QString& operation, const QString& value)
    {
        if (operation == Exists || operation == Lacks) {
            return always(operation == Exists);
        }
        const bool isEqual = operation == QLatin1String("EQ");
        if (!isEqual && operation != QLatin1String("NE")) {
            return lost(Words::tr("FIX_OrdType 不能用“%1”比较").arg(operation));
        }
        if (value != QLatin1String("1") && value != QLatin1String("2")) {
            return always(!isEqual);
        }
        const bool wantsLimit = (value == QLatin1String("2")) == isEqual;
        return {{QStringLiteral("operator"), wantsLimit ? Exists : Lacks},
                {QStringLiteral("field"), Algo_Fields::AlgoInstContentInfo::PriceLimits}};
    }

    bool isComparison(const QString& operation, bool hasOrder)
    {
        static const QStringList equal = {QStringLiteral("EQ"), QStringLiteral("NE")};
        static const QStringList ordered = {QStringLiteral("LT"), QStringLiteral("LE"), QStringLiteral("GT"),
                                            QStringLiteral("GE")};
        return equal.contains(operation) || (hasOrder && ordered.contains(operation));
    }

    QJsonObject comparison(const QString& operation, const Operand& left, const QString& key,
                           const QString& right)
    {
        const bool hasOrder = isNumeric(left.kind) || isTime(left.kind);
        if (!isComparison(operation, hasOrder)) {
            return lost(Words::tr("“%1”不能用“%2”比较").arg(left.paramId, operation));
        }
        return {{QStringLiteral("operator"), operation},
                {QStringLiteral("kind"),
                 isNumeric(left.kind) ? QStringLiteral("number") : QStringLiteral("text")},
                {QStringLiteral("field"), left.paramId},
                {key, right}};
    }

    QJsonObject withField(const QString& operation, const Operand& left, const QString& name)
    {
        const std::optional<Operand> right = operandOf(name);
        if (!right || left.paramId.isEmpty() || right->paramId.isEmpty()) {
            return lost(Words::tr("表中没有“%1”").arg(name));
        }
        const bool arePlain = isNumeric(left.kind) && isNumeric(right->kind) && left.kind != Kind::Percent &&
                              right->kind != Kind::Percent;
        if (!arePlain && left.kind != right->kind) {
            return lost(Words::tr("“%1”与“%2”的类型不同").arg(left.paramId, right->paramId));
        }
        return comparison(operation, left, QStringLiteral("field2"), right->paramId);
    }

    QJsonObject withValue(const QString& operation, const Operand& left, const QString& value)
    {
        if (left.paramId.isEmpty()) {
            return always(compares(operation, orderOf(left.constant, value)));
        }
        if (left.isSide) {
            const bool isBuy = value == QLatin1String("1");
            return isBuy || value == QLatin1String("2")
                       ? comparison(operation, left, QStringLiteral("value"),
                                    isBuy ? Algo_Values::AlgoOrderSide::BuyValue
                                          : Algo_Values::AlgoOrderSide::SellValue)
                       : always(operation == QLatin1String("NE"));
        }
        const std::optional<QString> inTable =
            left.parameter != nullptr ? left.parameter->inTable(value)
                                      : (isNumber(value) ? std::make_optional(value) : std::nullopt);
        return inTable ? comparison(operation, left, QStringLiteral("value"), *inTable)
                       : lost(Words::tr("“%1”没有取值“%2”").arg(left.paramId, value));
    }

    static int orderOf(const QString& left, const QString& right)
    {
        if (!isNumber(left) || !isNumber(right)) {
            return QString::compare(left, right);
        }
        const ledger::Decimal difference = valueOf(left) - valueOf(right);
        return difference < 0 ? -1 : difference > 0 ? 1 : 0;
    }

    const XmlElement& mDocument;
    const XmlElement& mStrategy;
    const QList<Parameter>& mParameters;
    QString mWhy;
};

/// The one condition of a StrategyEdit; null where there is none.
const XmlElement* conditionIn(const XmlElement& strategyEdit)
{
    const auto found =
        std::find_if(strategyEdit.children.begin(), strategyEdit.children.end(), [](const XmlElement& one) {
            return one.is(spaces::Validation, QStringLiteral("Edit")) ||
                   one.is(spaces::Validation, QStringLiteral("EditRef"));
        });
    return found == strategyEdit.children.end() ? nullptr : &*found;
}

} // namespace

QJsonArray conditionsOf(const XmlElement& document, const XmlElement& strategy,
                        const QList<Parameter>& parameters, LossBook& losses)
{
    QJsonArray conditions;
    const QString element = QStringLiteral("StrategyEdit");
    for (const XmlElement& edit : strategy.all(spaces::Validation, element)) {
        const QString message = edit.attribute(QStringLiteral("errorMessage"));
        const XmlElement* condition = conditionIn(edit);
        Condition translation(document, strategy, parameters);
        const QJsonObject holds = condition == nullptr ? QJsonObject() : translation.node(*condition);
        if (condition == nullptr || !translation.why().isEmpty()) {
            losses.add(element, message, condition == nullptr ? Words::tr("没有条件") : translation.why());
        } else {
            conditions.append(
                QJsonObject{{QStringLiteral("message"), message}, {QStringLiteral("holds"), holds}});
        }
    }
    return conditions;
}

} // namespace atdl
