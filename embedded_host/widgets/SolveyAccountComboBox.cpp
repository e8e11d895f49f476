#include "host/SolveyAccountComboBox.h"

#include <algorithm>

namespace {

using DisplayMode = SolveyAccountComboBox::DisplayMode;

QString shownText(const tagUserAccountInfo& account, DisplayMode mode)
{
    switch (mode) {
    case DisplayMode::Account:
        return account.tradingAccount;
    case DisplayMode::Name:
        return account.name;
    case DisplayMode::NameAndAccount:
        break;
    }
    return QStringLiteral("%1 (%2)").arg(account.name, account.tradingAccount);
}

} // namespace

SolveyAccountComboBox::SolveyAccountComboBox(QWidget* parent, DisplayMode mode)
    : QComboBox(parent), mMode(mode)
{
    setSizeAdjustPolicy(QComboBox::AdjustToContents); // the accounts come after the first show
}

SolveyAccountComboBox::~SolveyAccountComboBox() = default;

void SolveyAccountComboBox::SetAccountList(const QList<tagUserAccountInfo>& accounts)
{
    mAccounts = accounts;
    clear();
    for (const tagUserAccountInfo& account : accounts) {
        const QString text = shownText(account, mMode);
        // Whoever listens for the text would not hear of a choice between two accounts of one name.
        const bool unique = findText(text, Qt::MatchExactly | Qt::MatchCaseSensitive) < 0;
        addItem(unique ? text : shownText(account, DisplayMode::NameAndAccount), account.tradingAccount);
    }
}

void SolveyAccountComboBox::SetCurTradingAccount(const QString& tradingAccount)
{
    const int index = findData(tradingAccount);
    if (index >= 0) {
        setCurrentIndex(index);
    }
}

QString SolveyAccountComboBox::GetCurTradingAccount() const
{
    return currentData().toString();
}

QString SolveyAccountComboBox::GetCurAccountAssetProp() const
{
    const QString current = GetCurTradingAccount();
    const auto found = std::find_if(mAccounts.cbegin(), mAccounts.cend(), [&current](const auto& account) {
        return account.tradingAccount == current;
    });
    return found == mAccounts.cend() ? QString() : found->assetProp;
}
