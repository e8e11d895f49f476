#pragma once

#include "dialog/Logging.h"

#include <QString>
#include <QStringList>

#include <vector>

/// Switches the dialog's log on and keeps its lines as long as it lives. One at a time.
class LogCapture {
public:
    LogCapture()
    {
        lines().clear();
        for (const QLoggingCategory* category :
             {&lcDialog(), &lcSchema(), &lcImport(), &lcValidation(), &lcAmounts()}) {
            // A category is handed out const; the rules of the environment would win over setFilterRules().
            auto* writable = const_cast<QLoggingCategory*>(category);
            mBefore.push_back({writable, writable->isDebugEnabled()});
            writable->setEnabled(QtDebugMsg, true);
        }
        previous() = qInstallMessageHandler(&LogCapture::keep);
    }

    ~LogCapture()
    {
        qInstallMessageHandler(previous());
        for (const Before& before : mBefore) {
            before.category->setEnabled(QtDebugMsg, before.enabled);
        }
    }

    LogCapture(const LogCapture&) = delete;
    LogCapture& operator=(const LogCapture&) = delete;

    /// Every line so far, one under the other.
    QString text() const { return lines().join(QLatin1Char('\n')); }

    /// The first of these texts that the log lacks behind the one before it; empty where all came in this
    /// order.
    QString firstMissing(const QStringList& expected) const
    {
        const QString log = text();
        int from = 0;
        for (const QString& part : expected) {
            const int at = log.indexOf(part, from);
            if (at < 0) {
                return part;
            }
            from = at + part.size();
        }
        return QString();
    }

private:
    struct Before {
        QLoggingCategory* category;
        bool enabled;
    };

    static QStringList& lines()
    {
        static QStringList instance;
        return instance;
    }

    static QtMessageHandler& previous()
    {
        static QtMessageHandler instance = nullptr;
        return instance;
    }

    static void keep(QtMsgType type, const QMessageLogContext& context, const QString& text)
    {
        if (type == QtDebugMsg) {
            lines().append(text);
        } else if (previous() != nullptr) {
            previous()(type, context, text);
        }
    }

    std::vector<Before> mBefore;
};
