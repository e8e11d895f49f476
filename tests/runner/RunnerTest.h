#pragma once

#include "tests/support/Text.h"

#include <gtest/gtest.h>

#include <QByteArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QMap>
#include <QProcess>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

/// Runs algodesk on a small reference data folder of its own. A test may change the files before it runs. The
/// ledger is where ledgerPlace() says: in the home, or on a server.
class RunnerTest : public testing::Test {
protected:
    /// What a run left behind.
    struct Run {
        int status = -1;
        QByteArray out;
        QByteArray err;

        QJsonDocument json() const { return QJsonDocument::fromJson(out); }
        QJsonObject object() const { return json().object(); }
    };

    void SetUp() override;

    /// Makes a process of algodesk, which the test gives its arguments and starts. `environment` is added to
    /// the test's own.
    void prepare(QProcess& process, const QMap<QString, QString>& environment = {}) const;
    static Run finish(QProcess& process);
    Run run(const QStringList& arguments, const QMap<QString, QString>& environment = {});
    /// --strategy AITWAP --account A1
    static QStringList aitwap();
    /// algodesk import FILE --data … --home … and these arguments.
    QStringList importArguments(const QString& file, const QStringList& more = aitwap()) const;
    Run import(const QString& file, const QStringList& more = aitwap());
    /// An import that creates its batch in the home's ledger.
    Run create(const QString& file, const QStringList& more = {});
    static QJsonObject creation(const Run& created);
    /// A subcommand on the home of the imports.
    Run atHome(const QStringList& arguments) { return run(arguments + QStringList{"--home"_s, home()}); }
    static void expectValid(const QJsonValue& value, const QString& schema);

    /// Writes a file of the data folder, or beside it; returns its path.
    QString writeData(const QString& name, const QByteArray& bytes);
    QString write(const QString& name, const QByteArray& bytes);
    QString dataFolder() const { return mFolder.filePath(QStringLiteral("data")); }
    QString folder() const { return mFolder.path(); }
    QString home() const { return mFolder.filePath(QStringLiteral("home")); }

    /// Exit status 2, one line on standard error that holds `text`, nothing on standard output.
    static void expectRefused(const Run& run, const QString& text);

    /// A csv file of these data rows under the columns of AITWAP.
    QString table(const QByteArray& rows, const QString& name = QStringLiteral("list.csv"));
    /// A good row of it, and one whose code is unknown.
    static QByteArray goodRow() { return "600000,SH,1000,1,0,7\n"; }
    static QByteArray badRow() { return "999999,SH,1000,1,0,7\n"; }

private:
    QTemporaryDir mFolder;
};
