#include "atdl/Translation.h"
#include "desk/broker/BrokerRules.h"
#include "gateway/profile/Profile.h"
#include "strategy/Strategy.h"

#include <QJsonDocument>

#include <cstdint>
#include <cstdlib>

namespace {

void expect(bool holds)
{
    if (!holds) {
        std::abort();
    }
}

void expectUsable(const atdl::Translation& made)
{
    expect(gateway::readProfile(QJsonDocument(made.profile).toJson()).ok());
    const auto rules =
        broker::BrokerRules::parse(QJsonDocument(made.rules).toJson(), QStringLiteral("rules"));
    expect(rules.ok());
    for (const QJsonValue& one : made.strategies) {
        const QJsonObject entry = one.toObject();
        const QString code = entry.value(QStringLiteral("name")).toString();
        const QByteArray formats =
            QJsonDocument(entry.value(QStringLiteral("paramFormats")).toArray()).toJson();
        expect(strategy::Strategy::parse(code, code, QString::fromUtf8(formats)).ok());
        rules.value.faultsOf(code, {{QStringLiteral("P"), QStringLiteral("1.5")}});
    }
    for (const atdl::Loss& loss : made.losses) {
        expect(!loss.element.isEmpty() && !loss.reason.isEmpty());
    }
}

} // namespace

/// Any bytes as a broker's document, or as what stands within a strategy of one: what is made of it is read
/// by everybody who uses it.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<int>(size));
    const QByteArray inside =
        R"(<Strategies xmlns="http://www.fixprotocol.org/FIXatdl-1-1/Core" xmlns:v="http://www.fixprotocol.org/FIXatdl-1-1/Validation" xmlns:l="http://www.fixprotocol.org/FIXatdl-1-1/Layout" xmlns:x="http://www.w3.org/2001/XMLSchema-instance" strategyIdentifierTag="847" tag957Support="true"><Strategy name="S" wireValue="1">)" +
        bytes + "</Strategy></Strategies>";
    for (const QByteArray& document : {bytes, inside}) {
        const Outcome<atdl::Translation> outcome = atdl::translate(document);
        if (outcome.ok()) {
            expectUsable(outcome.value);
        }
    }
    return 0;
}
