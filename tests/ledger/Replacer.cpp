// Puts one batch in the place of the one before until it is killed: draft n always has the same id, so that a
// run after a kill tries again what the one before may or may not have got through.
//
//     ledger_replacer ADDRESS FIRST_DRAFT

#include "tests/ledger/SampleDrafts.h"

#include <QCoreApplication>

#include <cstdio>

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    const auto opened = ledger::Ledger::open(ledger::Address::parse(arguments.at(1)).value);
    if (!opened.ok()) {
        fprintf(stderr, "%s\n", qPrintable(opened.error));
        return 1;
    }
    puts("ready");
    fflush(stdout);
    const QUuid family("{6f2c2f0e-2a55-4a1c-9a5e-0d5f1f0c7b13}"_s);
    for (int number = arguments.at(2).toInt();; ++number) {
        ledger::BatchDraft draft = sampleDraft(5);
        draft.id = QUuid::createUuidV5(family, QString::number(number));
        draft.fileName = QString::number(number);
        for (ledger::InstanceDraft& instance : draft.instances) {
            instance.legs.first().amount = 100;
        }
        const auto newest = opened.value->batchesBefore(std::nullopt, 1);
        ledger::CreationTerms terms;
        if (!newest.value.isEmpty()) {
            terms.replaces = newest.value.first().number;
        }
        const auto created = opened.value->createBatch(draft, terms);
        if (!newest.ok() || !created.ok()) {
            fprintf(stderr, "%s%s\n", qPrintable(newest.error), qPrintable(created.error));
            return 1;
        }
    }
}
