#pragma once

#include "desk/check/FileReport.h"

#include <QWidget>

class EmbeddedHost;
class FilteredTable;
class FindingsModel;
class QLabel;
class UserPrompts;

/// The report on the imported file: a line of facts, and what looks wrong in it, one finding a line.
class FileCheckPanel : public QWidget {
    Q_OBJECT

public:
    FileCheckPanel(EmbeddedHost& host, UserPrompts& prompts, QWidget* parent = nullptr);

    FilteredTable* table() const { return mTable; }
    const FileReport& report() const { return mReport; }
    /// Of a file that cannot be read, the reason is the only line. Without a digest, showDigest() follows.
    void show(const FileReport& report);
    void clear();

public slots:
    void showDigest(const QString& sha256);

signals:
    void countChanged(int count);

private:
    void showFacts();

    FindingsModel* mModel;
    FilteredTable* mTable;
    QLabel* mFacts;
    FileReport mReport;
};
