#pragma once

#include "ledger/Ledger.h"

#include <QPushButton>
#include <QTimer>

#include <memory>

/// Halts all trading at one press, without a question; while trading is halted it resumes it, and asks first.
/// Shows what holds in the ledger, whoever decided it.
class HaltButton : public QPushButton {
    Q_OBJECT

public:
    /// Without a ledger there is nothing to halt.
    explicit HaltButton(std::shared_ptr<ledger::Ledger> ledger, QWidget* parent = nullptr);

    bool isHalted() const { return mIsHalted; }

public slots:
    void refresh();

signals:
    void said(const QString& text);

private:
    void press();
    bool wantsToResume();

    std::shared_ptr<ledger::Ledger> mLedger;
    QTimer mTimer;
    QString mReasons;
    bool mIsHalted = false;
};
