#pragma once

#include "desk/window/DeskBooks.h"

#include <QPushButton>

/// Halts all trading at one press, without a question; while trading is halted it resumes it, and asks first.
/// Shows what holds in the ledger, whoever decided it.
class HaltButton : public QPushButton {
    Q_OBJECT

public:
    /// Without a ledger there is nothing to halt.
    explicit HaltButton(const DeskBooks& books, QWidget* parent = nullptr);

    bool isHalted() const { return mIsHalted; }

public slots:
    /// Asks the ledger; while that does not answer, what was known of it stays.
    void refresh();

signals:
    void said(const QString& text);

private:
    void press();
    bool wantsToResume();

    const DeskBooks& mBooks;
    QString mReasons;
    bool mIsHalted = false;
};
