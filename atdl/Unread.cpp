#include "atdl/Unread.h"

#include "atdl/Names.h"
#include "words/Words.h"

#include <QHash>
#include <QStringList>

#include <algorithm>
#include <iterator>

namespace atdl {

namespace {

QStringList words(const char* text)
{
    return QString::fromLatin1(text).split(QLatin1Char(' '));
}

/// Attributes that are made use of, or tell of looks alone, by element.
const QHash<QString, QStringList>& knownAttributes()
{
    static const QHash<QString, QStringList> known = {
        {QStringLiteral("Strategies"), words("strategyIdentifierTag versionIdentifierTag tag957Support "
                                             "imageLocation changeStrategyOnCxlRpl draftFlagIdentifierTag")},
        {QStringLiteral("Strategy"), words("name uiRep wireValue version fixMsgType providerID imageLocation "
                                           "disclosureDoc")},
        {QStringLiteral("Parameter"),
         words(
             "name xsi:type fixTag use constValue minValue maxValue minLength maxLength precision localMktTz "
             "trueWireValue falseWireValue multiplyBy100 invertOnWire mutableOnCxlRpl revertOnCxlRpl "
             "definedByFIX")},
        {QStringLiteral("EnumPair"), words("enumID wireValue index")},
        {QStringLiteral("Region"), words("name inclusion")},
        {QStringLiteral("Country"), words("CountryCode inclusion")},
        {QStringLiteral("Market"), words("MICCode inclusion")},
        {QStringLiteral("StrategyEdit"), words("errorMessage")},
        {QStringLiteral("Edit"), words("id field field2 operator logicOperator value")},
        {QStringLiteral("EditRef"), words("id")},
        {QStringLiteral("Control"),
         words("ID xsi:type label parameterRef initValue initPolicy initFixField initValueMode localMktTz "
               "checkedEnumRef uncheckedEnumRef disableForTemplate tooltip orientation increment "
               "incrementPolicy innerIncrement innerIncrementPolicy outerIncrement outerIncrementPolicy "
               "radioGroup")},
        {QStringLiteral("ListItem"), words("enumID uiRep")},
    };
    return known;
}

/// Elements without attributes of their own that matter.
const QStringList& plainElements()
{
    static const QStringList known =
        words("Description Regions Markets StrategyLayout StrategyPanel HelpText");
    return known;
}

/// Attributes by which people know an element.
constexpr const char* NameKeys[] = {"name", "ID", "id", "errorMessage", "enumID", "parameterRef"};

bool hasName(const XmlElement& element)
{
    return std::any_of(std::begin(NameKeys), std::end(NameKeys),
                       [&](const char* key) { return element.has(QLatin1String(key)); });
}

QString nameOf(const XmlElement& element)
{
    for (const char* key : NameKeys) {
        if (element.has(QLatin1String(key))) {
            return element.attribute(QLatin1String(key));
        }
    }
    return element.name;
}

void tellOfAttributes(const XmlElement& element, LossBook& losses)
{
    const QStringList known = knownAttributes().value(element.name);
    for (auto it = element.attributes.begin(); it != element.attributes.end(); ++it) {
        if (!known.contains(it.key())) {
            losses.add(element.name, QStringLiteral("%1/@%2").arg(nameOf(element), it.key()),
                       Words::tr("不支持的属性“%1”").arg(it.value()));
        }
    }
}

QString reasonOf(const XmlElement& element)
{
    return element.is(spaces::Flow, QStringLiteral("StateRule"))
               ? Words::tr("录入界面的联动规则，表中没有：请按算法说明填写")
               : Words::tr("不支持的元素");
}

void tell(const XmlElement& parent, LossBook& losses)
{
    for (const XmlElement& child : parent.children) {
        if (plainElements().contains(child.name)) {
            tell(child, losses);
        } else if (knownAttributes().contains(child.name)) {
            tellOfAttributes(child, losses);
            tell(child, losses);
        } else {
            losses.add(child.name, nameOf(hasName(child) ? child : parent), reasonOf(child));
        }
    }
}

} // namespace

void tellOfUnread(const XmlElement& strategy, LossBook& losses)
{
    tellOfAttributes(strategy, losses);
    tell(strategy, losses);
}

void tellOfUnreadOfDocument(const XmlElement& document, LossBook& losses)
{
    tellOfAttributes(document, losses);
    for (const XmlElement& child : document.children) {
        const bool isKnown = child.is(spaces::Core, QStringLiteral("Strategy")) ||
                             child.is(spaces::Validation, QStringLiteral("Edit")) ||
                             child.name == QLatin1String("Description");
        if (!isKnown) {
            losses.add(child.name, nameOf(child), reasonOf(child));
        }
    }
}

} // namespace atdl
