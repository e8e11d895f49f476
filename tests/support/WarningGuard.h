#pragma once

#include <gtest/gtest.h>

#include <QDebug>
#include <QMutex>
#include <QString>
#include <QStringList>

/// Fails a test in which Qt or our own code warned without the test having asked for it.
class WarningGuard : public testing::EmptyTestEventListener {
public:
    /// The running test expects warnings; returns those that came up so far.
    static QStringList take()
    {
        QMutexLocker lock(&mutex());
        QStringList taken;
        taken.swap(warnings());
        return taken;
    }

    void OnTestStart(const testing::TestInfo&) override
    {
        take();
        qInstallMessageHandler(&WarningGuard::handle);
    }

    void OnTestEnd(const testing::TestInfo&) override
    {
        qInstallMessageHandler(nullptr);
        const QStringList left = take();
        for (const QString& warning : left) {
            ADD_FAILURE() << "unexpected warning: " << qPrintable(warning);
        }
    }

private:
    static QMutex& mutex()
    {
        static QMutex instance;
        return instance;
    }

    static QStringList& warnings()
    {
        static QStringList instance;
        return instance;
    }

    static void handle(QtMsgType type, const QMessageLogContext&, const QString& text)
    {
        // The offscreen platform says so of every window that has a smallest size and of every menu; it is no
        // fault of theirs.
        if (text.startsWith(QLatin1String("This plugin does not support "))) {
            return;
        }
        if (type == QtWarningMsg || type == QtCriticalMsg) {
            QMutexLocker lock(&mutex());
            warnings().append(text);
        } else if (type == QtFatalMsg) {
            fprintf(stderr, "%s\n", qPrintable(text));
            abort();
        }
    }
};
