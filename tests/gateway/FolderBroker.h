#pragma once

#include "gateway/handoff/AnswerSheet.h"

#include <QHash>
#include <QString>
#include <QStringList>

#include <atomic>
#include <functional>
#include <map>
#include <mutex>
#include <random>
#include <thread>

/// A counterparty without FIX: takes files out of a folder and puts answers into another, in a thread of its
/// own. It knows nothing of the gateway's code but how csv is read.
class FolderBroker {
public:
    struct Options {
        unsigned int seed = 1;
        bool fills = true;            ///< fills at once what it takes
        bool answersQuestions = true; ///< status requests
        bool isClumsy = false;        ///< writes in place and slowly, says things twice, throws rubbish in
    };

    FolderBroker(const QString& path, const Options& options);
    ~FolderBroker();

    /// Files of an order that were taken, by ClOrdID: more than one is an order too many.
    std::map<QString, int> taken() const;
    /// Everything taken: file name and content.
    QList<QPair<QString, QByteArray>> files() const;
    int countOf(const QString& messageType) const;

    /// Puts an answer file in, whole.
    void say(const QString& name, const QByteArray& content) const;

private:
    using Row = QHash<QString, QString>;

    void run();
    void takeOne(const QString& name);
    void answer(const Row& row);
    void answerOrder(const Row& row);
    void answerCancel(const Row& row);
    void answerQuestion(const Row& row);
    void tell(const QString& line);
    void tellClumsily(const QString& name, const QByteArray& content);
    void finish(const QString& name, const QByteArray& content) const;

    const QString mPath;
    const Options mOptions;
    std::mt19937 mRandom;
    mutable std::mutex mMutex;
    std::map<QString, int> mTaken;
    QHash<QString, QString> mStates; ///< OrdStatus by ClOrdID
    QHash<QString, QString> mQuantities;
    QList<QPair<QString, QByteArray>> mFiles;
    QHash<QString, int> mTypes;
    int mAnswers = 0;
    std::atomic<bool> mEnds{false};
    std::thread mThread;
};

/// Until it holds, at most so long; whether it does.
bool waitUntil(const std::function<bool()>& holds, int milliseconds = 60000);
