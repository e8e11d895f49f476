#pragma once

#include "desk/check/FileReport.h"

#include <QLabel>

/// A line of what is known of the imported file: how it was read, and its digest.
class FileFacts : public QLabel {
    Q_OBJECT

public:
    explicit FileFacts(QWidget* parent = nullptr);

    /// Without a digest, showDigest() follows. A report on no file clears the line.
    void showReport(const FileReport& report);

public slots:
    void showDigest(const QString& sha256);

private:
    FileReport mReport;
};
