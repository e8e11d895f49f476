#include "bench/embedded_host/LargeFolder.h"
#include "embedded_host/EmbeddedHost.h"
#include "embedded_host/reference_data/ReferenceFolder.h"
#include "host/CommonQuotaHandler.h"
#include "host/SolveyBusinessDataInterface.h"

#include <benchmark/benchmark.h>

namespace {

constexpr int Accounts = 200;
constexpr int Asked = 100; ///< look-ups a round, spread over all securities

ReferenceData dataOf(int securities)
{
    QString error;
    const auto tables = readReferenceFolder(LargeFolder(securities, Accounts).path(), error);
    if (!tables) {
        qFatal("%s", qPrintable(error));
    }
    return ReferenceData(*tables);
}

/// Runs `lookUp` for symbols or codes from all over the table. The time is that of one look-up.
template <typename LookUp> void measure(benchmark::State& state, QString (*textAt)(int), LookUp lookUp)
{
    const int securities = static_cast<int>(state.range(0));
    const EmbeddedHost host(dataOf(securities));
    QStringList texts;
    for (int i = 0; i < Asked; ++i) {
        texts.append(textAt(i * (securities / Asked)));
    }
    CommonQuotaHandler::instance()->SubscribeQuota(texts, true, 0);
    int next = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(lookUp(texts.at(next)));
        next = (next + 1) % Asked;
    }
}

void SymbolOfCodeAndMarket(benchmark::State& state)
{
    const QString market = QStringLiteral("沪市");
    measure(state, LargeFolder::code, [&](const QString& code) {
        return SolveyBusinessDataInterface::GetSymbolBySecurityIDAndExchange(code, market);
    });
}
BENCHMARK(SymbolOfCodeAndMarket)->Arg(100)->Arg(1000)->Arg(20000);

void QuantityStepOfSymbol(benchmark::State& state)
{
    measure(state, LargeFolder::symbol, SolveyBusinessDataInterface::GetQtyStepBySymbol);
}
BENCHMARK(QuantityStepOfSymbol)->Arg(100)->Arg(1000)->Arg(20000);

void SnapshotOfSymbol(benchmark::State& state)
{
    measure(state, LargeFolder::symbol, [](const QString& symbol) {
        return CommonQuotaHandler::instance()->GetQuotaSnapshot(symbol, 0);
    });
}
BENCHMARK(SnapshotOfSymbol)->Arg(100)->Arg(1000)->Arg(20000);

void SecurityAccountOfTradingAccount(benchmark::State& state)
{
    const QString tradingAccount = QStringLiteral("150");
    const QString exchange = QStringLiteral("SZ");
    measure(state, LargeFolder::symbol, [&](const QString&) {
        return SolveyBusinessDataInterface::GetCurrentSecurityAccountByTradingAndExchange(tradingAccount,
                                                                                          exchange);
    });
}
BENCHMARK(SecurityAccountOfTradingAccount)->Arg(100)->Arg(20000);

} // namespace
