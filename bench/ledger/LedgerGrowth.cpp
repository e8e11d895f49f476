// Fills a ledger with so many batches, of which the last ten are today's, and measures what is asked of it
// then:
//
//     growth_ledger ADDRESS BATCHES [ROWS [SESSIONS]]
//
// Prints a line an operation: its name, the median of its wall-clock time and of its CPU time, in
// milliseconds. With SESSIONS it measures instead how many batches of one row as many programs at once create
// in a second.

#include "bench/ledger/BenchDrafts.h"
#include "ledger/Ledger.h"

#include <QCoreApplication>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <ctime>
#include <functional>
#include <thread>
#include <vector>

using namespace ledger;

namespace {

constexpr int BatchesOfToday = 10;
constexpr int BatchesOfADay = 100;
constexpr int Accounts = 10;
constexpr int RowsOfALargeBatch = 1000;
constexpr int PageOfTheWindow = 500;
constexpr int Repetitions = 21;
constexpr int SecondsOfSessions = 5;

/// Moves back for the batches of earlier days.
QDateTime now;

using LedgerPointer = std::shared_ptr<Ledger>;

LedgerPointer openLedger(const QString& text)
{
    Ledger::Options options;
    options.clock = [] { return now; };
    const Outcome<Address> address = Address::parse(text);
    const auto opened =
        address.ok() ? Ledger::open(address.value, options) : Outcome<LedgerPointer>{{}, address.error};
    if (!opened.ok()) {
        std::fprintf(stderr, "%s\n", qPrintable(opened.error));
        std::exit(1);
    }
    return opened.value;
}

/// The same rows every time, as of a basket that is traded every day.
void create(Ledger& ledger, BatchDraft draft, const QString& account, const CreationTerms& terms = {})
{
    draft.id = QUuid::createUuid();
    draft.account = account;
    const Outcome<Batch> created = ledger.createBatch(draft, terms);
    if (!created.ok()) {
        std::fprintf(stderr, "%s\n", qPrintable(created.error));
        std::exit(1);
    }
}

QString account(qint64 number)
{
    return QString::number(80010001 + number % Accounts);
}

void fill(Ledger& ledger, qint64 batches, int rows)
{
    const BatchDraft draft = benchDraft(rows);
    const QList<Batch> newest = ledger.batchesBefore(std::nullopt, 1).value;
    const QDateTime today = QDateTime::currentDateTimeUtc();
    for (qint64 number = newest.isEmpty() ? 1 : newest.first().number + 1; number <= batches; ++number) {
        const qint64 before = batches - BatchesOfToday - number;
        now = before < 0 ? today : today.addDays(-1 - before / BatchesOfADay);
        create(ledger, draft, account(number));
    }
    now = today;
}

double milliseconds(clockid_t clock)
{
    timespec time = {};
    clock_gettime(clock, &time);
    return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) / 1e6;
}

double median(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    return values.at(values.size() / 2);
}

void measure(const char* name, const std::function<void()>& operation)
{
    std::vector<double> walls;
    std::vector<double> cpus;
    operation(); // the first one finds cold pages and prepares its statements
    for (int i = 0; i < Repetitions; ++i) {
        const double wall = milliseconds(CLOCK_MONOTONIC);
        const double cpu = milliseconds(CLOCK_PROCESS_CPUTIME_ID);
        operation();
        walls.push_back(milliseconds(CLOCK_MONOTONIC) - wall);
        cpus.push_back(milliseconds(CLOCK_PROCESS_CPUTIME_ID) - cpu);
    }
    std::printf("%s\t%.2f\t%.2f\n", name, median(walls), median(cpus));
    std::fflush(stdout);
}

/// As a desk creates that was told of every duplicate: the ledger looks for them once more.
CreationTerms termsFor(const Ledger& ledger, const BatchDraft& draft)
{
    CreationTerms terms;
    terms.knownDuplicates = QSet<qint64>();
    const QList<Duplicate> duplicates = ledger.standingOf(draft).value.duplicates;
    for (const Duplicate& duplicate : duplicates) {
        terms.knownDuplicates->insert(duplicate.batch);
    }
    return terms;
}

/// What a window and a runner ask for; creating comes last, since it makes today's list longer.
void measureAll(const QString& address)
{
    const LedgerPointer ledger = openLedger(address);
    BatchDraft draft = benchDraft(RowsOfALargeBatch);
    draft.account = account(0);
    measure("opening the ledger", [&] { openLedger(address); });
    measure("whether anything changed", [&] { ledger->changeCount(); });
    measure("the state of things", [&] { ledger->status(); });
    measure("the newest 500 batches", [&] { ledger->batchesBefore(std::nullopt, PageOfTheWindow); });
    measure("the batches of today",
            [&] { ledger->eachBatchOfDay(ledger->today(), [](const Batch&) { return true; }); });
    measure("the newest 500 instances", [&] { ledger->instancesBehind(std::nullopt, PageOfTheWindow); });
    measure("the next 500 instances", [&] { ledger->instancesBehind(InstanceId{5, 50}, PageOfTheWindow); });
    measure("what it holds against 1,000 rows", [&] { ledger->standingOf(draft); });
    measure("creating 1 instance", [&] { create(*ledger, benchDraft(1), QStringLiteral("1")); });
    measure("creating 1,000 instances", [&] { create(*ledger, draft, QStringLiteral("1000")); });
    measure("creating 1,000 that exist, told of it",
            [&] { create(*ledger, draft, draft.account, termsFor(*ledger, draft)); });
}

void createForAWhile(const QString& address, int session, std::vector<int>& counts)
{
    const LedgerPointer ledger = openLedger(address);
    const double end = milliseconds(CLOCK_MONOTONIC) + SecondsOfSessions * 1e3;
    while (milliseconds(CLOCK_MONOTONIC) < end) {
        create(*ledger, benchDraft(1), account(session));
        ++counts.at(static_cast<size_t>(session));
    }
}

void measureSessions(const QString& address, int sessions)
{
    std::vector<int> counts(static_cast<size_t>(sessions));
    std::vector<std::thread> threads;
    for (int session = 0; session < sessions; ++session) {
        threads.emplace_back([&, session] { createForAWhile(address, session, counts); });
    }
    int all = 0;
    for (int session = 0; session < sessions; ++session) {
        threads.at(static_cast<size_t>(session)).join();
        all += counts.at(static_cast<size_t>(session));
    }
    std::printf("changes a second of %d at once\t%.0f\n", sessions,
                static_cast<double>(all) / SecondsOfSessions);
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (argc < 3) {
        std::fprintf(stderr, "growth_ledger ADDRESS BATCHES [ROWS [SESSIONS]]\n");
        return 2;
    }
    now = QDateTime::currentDateTimeUtc();
    fill(*openLedger(arguments.at(1)), arguments.at(2).toLongLong(),
         arguments.value(3, QStringLiteral("100")).toInt());
    if (argc > 4) {
        measureSessions(arguments.at(1), arguments.at(4).toInt());
    } else {
        measureAll(arguments.at(1));
    }
    return 0;
}
