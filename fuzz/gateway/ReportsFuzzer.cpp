#include "gateway/messages/WireNumber.h"
#include "gateway/recovery/Recovery.h"
#include "tests/gateway/Wire.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>

using namespace gateway;

namespace {

const QString Ordered = QStringLiteral("1000");

QVariantMap leg()
{
    return {{QStringLiteral("证券代码"), QStringLiteral("600000.SH")},
            {QStringLiteral("市场"), QStringLiteral("SH")},
            {QStringLiteral("交易方向"), QStringLiteral("Buy")},
            {QStringLiteral("委托数量"), Ordered}};
}

OpenInstance instance(int legs)
{
    OpenInstance one;
    one.key = {1, 1};
    one.order.draftId = QUuid(QStringLiteral("6dbde99a-dd38-48b0-838c-6ca434ae6f54"));
    one.order.row = 1;
    one.order.strategy = QStringLiteral("S");
    QVariantList list;
    for (int i = 0; i < legs; ++i) {
        list.append(leg());
    }
    one.order.parameters = {{QStringLiteral("交易账号"), QStringLiteral("80010001")},
                            {QStringLiteral("证券代码和委托数量"), list}};
    one.standing.state = State::Sending;
    return one;
}

Profile profile()
{
    Profile result;
    result.exchanges.insert(QStringLiteral("SH"), QStringLiteral("XSHG"));
    result.sides.insert(QStringLiteral("Buy"), {{54, QStringLiteral("1")}});
    result.strategies.insert(QStringLiteral("S"), StrategyRule());
    return result;
}

/// A line of the input: fields between bars, those of legs behind a brace.
Message messageOf(const std::string& line)
{
    Message message;
    std::string text = line.substr(0, line.find('{'));
    std::replace(text.begin(), text.end(), '|', '\001');
    for (const auto& field : wire::parse(text)) {
        message.put(field.first, field.second);
    }
    message.type = message.text(35);
    if (text.size() < line.size()) {
        Group legs;
        legs.countTag = 555;
        Fields entry;
        std::string rest = line.substr(text.size() + 1);
        std::replace(rest.begin(), rest.end(), '|', '\001');
        for (const auto& field : wire::parse(rest)) {
            entry.push_back({field.first, field.second});
        }
        legs.entries.push_back(entry);
        message.groups.push_back(legs);
    }
    return message;
}

void expect(bool holds)
{
    if (!holds) {
        std::abort();
    }
}

void expectSound(const Fill& before, const Fill& after, bool mayFall)
{
    const ledger::Decimal quantity = wire_number::valueOf(after.quantity);
    expect(quantity >= 0 && quantity <= wire_number::valueOf(Ordered));
    expect(mayFall || quantity >= wire_number::valueOf(before.quantity));
}

/// Never above the order, never down but by a bust, and nothing but a bust opens what is over.
void expectSound(const Change& change)
{
    const bool mayFall = change.report && change.report->takesBack();
    expectSound(change.before.fill, change.after.fill, mayFall);
    for (int i = 0; i < change.after.legs.size(); ++i) {
        expectSound(change.before.legs.value(i), change.after.legs.at(i), mayFall);
    }
    expect(mayFall || change.before.state != State::Finished || change.after.state == State::Finished);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string input(reinterpret_cast<const char*>(data), size);
    Recovery recovery(profile(), Pacing({}, 0));
    Moment now = {0, QDateTime::fromMSecsSinceEpoch(0, Qt::UTC)};
    Step step;
    recovery.loggedOn(now, step);
    recovery.send(instance(size % 2 == 0 ? 1 : 2), now, step);
    std::size_t begin = 0;
    while (begin < input.size()) {
        const std::size_t end = std::min(input.find('\n', begin), input.size());
        const Outcome<Report> report = readReport(messageOf(input.substr(begin, end - begin)));
        if (report.ok()) {
            Report ours = report.value;
            ours.clOrdId = QStringLiteral("NW66TGW5HBELBA4MNSSDJLTPKQ-1");
            recovery.receive(ours, now, step);
        }
        now.steady += 20000;
        recovery.tick(now, step);
        begin = end + 1;
    }
    for (const Change& change : step.changes) {
        expectSound(change);
    }
    return 0;
}
