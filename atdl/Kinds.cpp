#include "atdl/Kinds.h"

#include <algorithm>
#include <array>

namespace atdl {

namespace {

constexpr std::array<Type, 25> Types = {{{"Int_t", Kind::Whole, "Int"},
                                         {"Length_t", Kind::Whole, "Length"},
                                         {"NumInGroup_t", Kind::Whole, "NumInGroup"},
                                         {"SeqNum_t", Kind::Whole, "SeqNum"},
                                         {"TagNum_t", Kind::Whole, "TagNum"},
                                         {"Float_t", Kind::Number, "Float"},
                                         {"Qty_t", Kind::Number, "Qty"},
                                         {"Price_t", Kind::Number, "Price"},
                                         {"PriceOffset_t", Kind::Number, "PriceOffset"},
                                         {"Amt_t", Kind::Number, "Amt"},
                                         {"Percentage_t", Kind::Percent, "Percentage"},
                                         {"Char_t", Kind::Text, "Char"},
                                         {"Boolean_t", Kind::Flag, "Boolean"},
                                         {"String_t", Kind::Text, "String"},
                                         {"MultipleCharValue_t", Kind::Several, "MultipleCharValue"},
                                         {"MultipleStringValue_t", Kind::Several, "MultipleStringValue"},
                                         {"Currency_t", Kind::Text, "Currency"},
                                         {"Exchange_t", Kind::Text, "Exchange"},
                                         {"MonthYear_t", Kind::Text, "MonthYear"},
                                         {"Country_t", Kind::Text, "Country"},
                                         {"Language_t", Kind::Text, "Language"},
                                         {"Tenor_t", Kind::Text, "Tenor"},
                                         {"UTCTimestamp_t", Kind::Moment, "UTCTimestamp"},
                                         {"UTCTimeOnly_t", Kind::Clock, "UTCTimeOnly"},
                                         {"LocalMktDate_t", Kind::Day, "LocalMktDate"}}};

} // namespace

bool isNumeric(Kind kind)
{
    return kind == Kind::Whole || kind == Kind::Number || kind == Kind::Percent;
}

bool isTime(Kind kind)
{
    return kind == Kind::Moment || kind == Kind::Clock || kind == Kind::Day;
}

QString typeNameOf(const XmlElement& element)
{
    return element.attribute(QStringLiteral("xsi:type")).section(QLatin1Char(':'), -1);
}

const Type* typeOf(const XmlElement& element)
{
    const QString name = typeNameOf(element);
    const auto* const found = std::find_if(Types.begin(), Types.end(),
                                           [&](const Type& one) { return name == QLatin1String(one.name); });
    return found == Types.end() ? nullptr : found;
}

} // namespace atdl
