#include "atdl/Markets.h"

#include "atdl/Names.h"
#include "words/Words.h"

#include <algorithm>

namespace atdl {

namespace {

/// All of ours lie in it.
const QString OurRegion = QStringLiteral("AsiaPacificJapan");

bool includes(const XmlElement& element)
{
    return element.attribute(QStringLiteral("inclusion")) == QLatin1String("Include");
}

QList<XmlElement> listed(const XmlElement& strategy, const QString& group, const QString& entry)
{
    QList<XmlElement> all;
    for (const XmlElement& one : strategy.all(spaces::Core, group)) {
        all += one.all(spaces::Core, entry);
    }
    return all;
}

/// What the list says of the one with this code; nothing where it does not name it.
std::optional<bool> saidOf(const QList<XmlElement>& list, const QString& attribute, const QString& code)
{
    for (const XmlElement& one : list) {
        if (one.attribute(attribute) == code) {
            return includes(one);
        }
    }
    return std::nullopt;
}

/// Who is not named is out where anybody is in: inclusion takes precedence.
bool byOthers(const QList<XmlElement>& list)
{
    return std::none_of(list.begin(), list.end(), includes);
}

bool isInRegions(const QList<XmlElement>& regions, const QString& country)
{
    const auto ours = std::find_if(regions.begin(), regions.end(), [](const XmlElement& one) {
        return one.attribute(QStringLiteral("name")) == OurRegion;
    });
    if (ours == regions.end()) {
        return byOthers(regions);
    }
    const QList<XmlElement> countries = ours->all(spaces::Core, QStringLiteral("Country"));
    const std::optional<bool> said = saidOf(countries, QStringLiteral("CountryCode"), country);
    if (said) {
        return *said;
    }
    return includes(*ours) && byOthers(countries);
}

void tellOfForeign(const QList<XmlElement>& markets, LossBook& losses)
{
    for (const XmlElement& market : markets) {
        const QString mic = market.attribute(QStringLiteral("MICCode"));
        const bool isOurs = std::any_of(marketNames().begin(), marketNames().end(),
                                        [&](const MarketName& one) { return one.mic == mic; });
        if (!isOurs) {
            losses.add(QStringLiteral("Market"), mic, Words::tr("本系统没有此市场"));
        }
    }
}

} // namespace

const QList<MarketName>& marketNames()
{
    static const QList<MarketName> names = {
        {QStringLiteral("SH"), QStringLiteral("XSHG"), QStringLiteral("CN")},
        {QStringLiteral("SZ"), QStringLiteral("XSHE"), QStringLiteral("CN")},
        {QStringLiteral("BJ"), QStringLiteral("BJSE"), QStringLiteral("CN")},
        {QStringLiteral("HKSH"), QStringLiteral("XHKG"), QStringLiteral("HK")},
        {QStringLiteral("HKSZ"), QStringLiteral("XHKG"), QStringLiteral("HK")},
        {QStringLiteral("CFE"), QStringLiteral("CCFX"), QStringLiteral("CN")},
        {QStringLiteral("SHF"), QStringLiteral("XSGE"), QStringLiteral("CN")},
        {QStringLiteral("DCE"), QStringLiteral("XDCE"), QStringLiteral("CN")},
        {QStringLiteral("CZC"), QStringLiteral("XZCE"), QStringLiteral("CN")},
        {QStringLiteral("GFE"), QStringLiteral("GFEX"), QStringLiteral("CN")},
        {QStringLiteral("INE"), QStringLiteral("XINE"), QStringLiteral("CN")},
    };
    return names;
}

std::optional<QStringList> exchangesOf(const XmlElement& strategy, LossBook& losses)
{
    const QList<XmlElement> regions = listed(strategy, QStringLiteral("Regions"), QStringLiteral("Region"));
    const QList<XmlElement> markets = listed(strategy, QStringLiteral("Markets"), QStringLiteral("Market"));
    if (regions.isEmpty() && markets.isEmpty()) {
        return std::nullopt;
    }
    tellOfForeign(markets, losses);
    QStringList exchanges;
    for (const MarketName& name : marketNames()) {
        const std::optional<bool> said = saidOf(markets, QStringLiteral("MICCode"), name.mic);
        const bool otherwise = regions.isEmpty() ? byOthers(markets) : isInRegions(regions, name.country);
        if (said.value_or(otherwise)) {
            exchanges.append(name.exchange);
        }
    }
    return exchanges;
}

} // namespace atdl
