#pragma once

#include <QFrame>

class QLabel;

/// A line above the pages that says what came of a batch, until it is closed or another one comes.
class NoticeBar : public QFrame {
    Q_OBJECT

public:
    explicit NoticeBar(QWidget* parent = nullptr);

    /// Shows it; the batch is where its button leads.
    void tell(const QString& text, qint64 batch, bool isWarning);
    QString text() const;

signals:
    void batchWanted(qint64 batch);

private:
    QLabel* mText;
    qint64 mBatch = 0;
};
