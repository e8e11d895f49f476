#pragma once

#include <QFrame>

#include <functional>

class QLabel;
class QPushButton;

/// A line above the pages that says what came of a batch, until it is closed or another one comes.
class NoticeBar : public QFrame {
    Q_OBJECT

public:
    explicit NoticeBar(QWidget* parent = nullptr);

    /// Shows it; the batch is where its button leads.
    void tell(const QString& text, qint64 batch, bool isWarning);
    /// The same of anything else: what its button is called, and what it does.
    void offer(const QString& text, const QString& button, const std::function<void()>& act);
    QString text() const;

signals:
    void batchWanted(qint64 batch);

private:
    void bring(const QString& kind);

    QLabel* mText;
    QPushButton* mAct;
    std::function<void()> mDo;
};
