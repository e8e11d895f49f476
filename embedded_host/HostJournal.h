#pragma once

#include <QList>
#include <QString>
#include <QStringList>
#include <QVariantList>

#include <chrono>
#include <functional>
#include <utility>

/// What was asked of the host, in order, while recording: for tests that check calls and their arguments.
/// Recording is off at first and costs one comparison a call then.
class HostJournal {
public:
    struct Call {
        QString operation; ///< class and operation, such as "CommonQuotaHandler::SubscribeQuota"
        QVariantList arguments;
        std::chrono::steady_clock::time_point time = std::chrono::steady_clock::now();
    };

    void setRecording(bool recording) { mRecording = recording; }
    bool isRecording() const { return mRecording; }

    void add(const char* operation, QVariantList arguments);
    void clear() { mCalls.clear(); }
    /// Calls this at every call that is noted, before the host answers: what the caller had done by then.
    void whileNoting(std::function<void(const Call&)> look) { mLook = std::move(look); }

    const QList<Call>& calls() const { return mCalls; }
    /// The calls of one operation, in order.
    QList<Call> callsOf(const QString& operation) const;

private:
    bool mRecording = false;
    QList<Call> mCalls;
    std::function<void(const Call&)> mLook;
};
