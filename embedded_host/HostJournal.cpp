#include "embedded_host/HostJournal.h"

#include <utility>

void HostJournal::add(const char* operation, QVariantList arguments)
{
    mCalls.append({QString::fromLatin1(operation), std::move(arguments)});
    if (mLook) {
        mLook(mCalls.constLast());
    }
}

QList<HostJournal::Call> HostJournal::callsOf(const QString& operation) const
{
    QList<Call> found;
    for (const Call& call : mCalls) {
        if (call.operation == operation) {
            found.append(call);
        }
    }
    return found;
}
