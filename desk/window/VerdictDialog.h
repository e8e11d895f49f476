#pragma once

#include "ledger/BatchCreation.h"

#include <QDialog>

class QLabel;
class QLineEdit;
class QPushButton;
class QVBoxLayout;

/// What the guard says of a batch before it exists: refusals that nobody can override, warnings to be
/// accepted, and above a threshold the gross amount to be typed once more.
class VerdictDialog : public QDialog {
    Q_OBJECT

public:
    explicit VerdictDialog(const ledger::Review& review, QWidget* parent = nullptr);

    /// Whether there is anything to ask.
    static bool isNeeded(const ledger::Verdict& verdict);
    /// What the user agreed to; meaningful after the dialog was accepted.
    ledger::Consent consent() const;

private:
    void addSummary(QVBoxLayout* column);
    void addFindings(QVBoxLayout* column, const QString& title, const QList<ledger::Finding>& findings,
                     const QString& role);
    void addAmount(QVBoxLayout* column);
    void addButtons(QVBoxLayout* column);
    void showWhetherAllowed();

    ledger::Review mReview;
    QLineEdit* mAmount = nullptr;
    QPushButton* mCreate = nullptr; ///< null where the guard refuses
    QPushButton* mCancel = nullptr;
};
