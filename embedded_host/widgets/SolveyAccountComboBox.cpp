#include "host/SolveyAccountComboBox.h"

#include <QAbstractItemView>
#include <QEvent>
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

/// The name with its number, of which a narrow box shows the number whole and the name as far as it goes.
QString shownWithin(const SolveyAccountComboBox& box, int width)
{
    const QString whole = box.currentText();
    const QString number = QStringLiteral(" (%1)").arg(box.GetCurTradingAccount());
    const QFontMetrics metrics = box.fontMetrics();
    if (!whole.endsWith(number) || metrics.horizontalAdvance(whole) <= width) {
        return whole;
    }
    const int left = width - metrics.horizontalAdvance(number);
    return metrics.elidedText(whole.chopped(number.size()), Qt::ElideRight, left) + number;
}

/// Paints the box in its own place: how a client's box paints is no matter of its header.
class NumberKeeper : public QObject {
public:
    using QObject::QObject;

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() != QEvent::Paint) {
            return false;
        }
        paint(*static_cast<SolveyAccountComboBox*>(watched));
        return true;
    }

private:
    static void paint(SolveyAccountComboBox& box)
    {
        QStylePainter painter(&box);
        QStyleOptionComboBox option;
        option.initFrom(&box);
        option.frame = box.hasFrame();
        option.subControls = QStyle::SC_All;
        if (box.view()->isVisible()) {
            option.state |= QStyle::State_On;
        }
        const QRect field =
            box.style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, &box);
        option.currentText = shownWithin(box, field.width() - TextMargin);
        painter.drawComplexControl(QStyle::CC_ComboBox, option);
        painter.drawControl(QStyle::CE_ComboBoxLabel, option);
    }
};

} // namespace

SolveyAccountComboBox::SolveyAccountComboBox(QWidget* parent, DisplayMode mode)
    : QComboBox(parent), mMode(mode)
{
    setSizeAdjustPolicy(QComboBox::AdjustToContents); // the accounts come after the first show
    installEventFilter(new NumberKeeper(this));
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
