#include "host/SolveyAccountComboBox.h"

#include <QStyleOptionComboBox>
#include <QStylePainter>

#include <algorithm>

namespace {

using DisplayMode = SolveyAccountComboBox::DisplayMode;

constexpr int TextMargin = 4; // pixels that a style keeps free beside the text

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

void SolveyAccountComboBox::paintEvent(QPaintEvent*)
{
    QStylePainter painter(this);
    QStyleOptionComboBox option;
    initStyleOption(&option);
    const QRect field =
        style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, this);
    option.currentText = shownWithin(field.width() - TextMargin);
    painter.drawComplexControl(QStyle::CC_ComboBox, option);
    painter.drawControl(QStyle::CE_ComboBoxLabel, option);
}

QString SolveyAccountComboBox::shownWithin(int width) const
{
    const QString whole = currentText();
    const QString number = QStringLiteral(" (%1)").arg(GetCurTradingAccount());
    if (!whole.endsWith(number) || fontMetrics().horizontalAdvance(whole) <= width) {
        return whole;
    }
    const int left = width - fontMetrics().horizontalAdvance(number);
    return fontMetrics().elidedText(whole.chopped(number.size()), Qt::ElideRight, left) + number;
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
