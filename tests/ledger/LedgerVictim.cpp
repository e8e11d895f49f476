// Creates batches until it is killed: draft n always has the same id, so that a run after a kill tries again
// what the one before may or may not have got through.
//
//     ledger_victim HOME FIRST_DRAFT INSTANCES

#include "tests/ledger/SampleDrafts.h"

#include <QCoreApplication>

#include <cstdio>

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    const auto opened = openIn(arguments.at(1));
    if (!opened.ok()) {
        fprintf(stderr, "%s\n", qPrintable(opened.error));
        return 1;
    }
    puts("ready");
    fflush(stdout);
    const QUuid family("{6f2c2f0e-2a55-4a1c-9a5e-0d5f1f0c7b11}"_s);
    for (int number = arguments.at(2).toInt();; ++number) {
        ledger::BatchDraft draft = sampleDraft(arguments.at(3).toInt());
        draft.id = QUuid::createUuidV5(family, QString::number(number));
        draft.fileName = QString::number(number);
        const auto created = opened.value->createBatch(draft);
        if (!created.ok()) {
            fprintf(stderr, "%s\n", qPrintable(created.error));
            return 1;
        }
    }
}
