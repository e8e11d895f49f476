// A desk that creates batches until it is through, or killed: batch n always has the same id, file and
// amount, so that the desk that is started again, or another one, tries what may or may not have been
// created.
//
//     ledger_server_victim ADDRESS DESK DESKS FIRST LAST CEILING
//
// Says on standard output what came of each: "created FILE NUMBER", "refused FILE RULE", "failed FILE TEXT".

#include "tests/ledger/SampleDrafts.h"
#include "tests/ledger_server/Workload.h"

#include <QCoreApplication>
#include <QThread>

#include <cstdio>

using namespace ledger;

namespace {

void say(const char* what, int file, const QString& rest)
{
    std::printf("%s %d %s\n", what, file, qPrintable(rest));
    std::fflush(stdout);
}

std::shared_ptr<Ledger> connect(const QString& address)
{
    while (true) { // the server may be starting
        const auto opened = Ledger::open(Address::parse(address).value);
        if (opened.ok()) {
            return opened.value;
        }
        std::fprintf(stderr, "%s\n", qPrintable(opened.error));
        QThread::msleep(100);
    }
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    const int desk = arguments.at(2).toInt();
    const int desks = arguments.at(3).toInt();
    const std::shared_ptr<Ledger> ledger = connect(arguments.at(1));
    say("ready", desk, QString());
    CreationTerms terms;
    terms.knownDuplicates = QSet<qint64>();
    terms.limits.dayBuy = Decimal::fromText(arguments.at(6));
    for (int file = arguments.at(4).toInt(); file <= arguments.at(5).toInt(); ++file) {
        if (!isFileOf(file, desk, desks)) {
            continue;
        }
        const BatchDraft draft = workloadDraft(file, desk);
        while (true) {
            QList<Finding> refusals;
            const Outcome<Batch> created = ledger->createBatch(draft, terms, &refusals);
            if (created.ok()) {
                say("created", file, QString::number(created.value.number));
                break;
            }
            if (!refusals.isEmpty()) {
                say("refused", file, refusals.first().rule);
                break;
            }
            say("failed", file, created.error);
            QThread::msleep(50);
        }
    }
}
