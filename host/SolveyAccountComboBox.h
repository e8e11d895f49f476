#pragma once

#include "host/AccountTypes.h"
#include "host/HostApi.h"

#include <QComboBox>
#include <QList>

/// Chooses one of the user's accounts. An item's data (Qt::UserRole) is the trading account; its text is
/// unique, so that choosing another account changes the current text.
class ALGO_HOST_API SolveyAccountComboBox : public QComboBox {
    Q_OBJECT

public:
    /// What an item shows.
    enum class DisplayMode { Account = 0, Name = 1, NameAndAccount = 2 };
    Q_ENUM(DisplayMode)

    explicit SolveyAccountComboBox(QWidget* parent = nullptr, DisplayMode mode = DisplayMode::NameAndAccount);
    ~SolveyAccountComboBox() override;

    /// Replaces the accounts; the first one becomes current.
    void SetAccountList(const QList<tagUserAccountInfo>& accounts);
    /// Chooses an account; an unknown one changes nothing.
    void SetCurTradingAccount(const QString& tradingAccount);
    /// Empty when there is no account.
    QString GetCurTradingAccount() const;
    /// The chosen account's asset property (Solvey_Values::FundAccountType or another text).
    QString GetCurAccountAssetProp() const;

private:
    DisplayMode mMode;
    QList<tagUserAccountInfo> mAccounts;
};
