#include "desk/window/HaltButton.h"

#include "embedded_host/widgets/PlainToolTip.h"
#include "host/ZelMessageBox.h"

#include <QDialog>

namespace {

constexpr int RefreshMs = 2000; // another program may halt too
const QString Everyone = QStringLiteral("*");

} // namespace

HaltButton::HaltButton(std::shared_ptr<ledger::Ledger> ledger, QWidget* parent)
    : QPushButton(parent), mLedger(std::move(ledger))
{
    setObjectName(QStringLiteral("button_halt"));
    setAutoDefault(false);
    setEnabled(mLedger != nullptr);
    connect(this, &QPushButton::clicked, this, &HaltButton::press);
    connect(&mTimer, &QTimer::timeout, this, &HaltButton::refresh);
    refresh();
    if (mLedger) {
        mTimer.start(RefreshMs);
    }
}

void HaltButton::refresh()
{
    mReasons.clear();
    mIsHalted = false;
    if (mLedger) {
        const Outcome<ledger::Status> status = mLedger->status();
        for (const ledger::Halt& halt : status.value.halts) {
            mIsHalted = mIsHalted || halt.account == Everyone;
            const QString whom = halt.account == Everyone ? QStringLiteral("全部账户") : halt.account;
            mReasons += QStringLiteral("%1：%2（%3）\n").arg(whom, halt.reason, halt.by);
        }
    }
    setText(mIsHalted ? QStringLiteral("恢复交易…") : QStringLiteral("停止交易"));
    setToolTip(mReasons.isEmpty() ? QString() : plainToolTip(mReasons.trimmed()));
}

void HaltButton::press()
{
    refresh();
    if (mIsHalted && !wantsToResume()) {
        return;
    }
    const bool wasHalted = mIsHalted;
    const Outcome<void> done = wasHalted ? mLedger->resume(Everyone, QStringLiteral("交易台按钮"))
                                         : mLedger->halt(Everyone, QStringLiteral("交易台按钮"));
    refresh();
    emit said(!done.ok()  ? done.error
              : wasHalted ? QStringLiteral("交易已恢复")
                          : QStringLiteral("交易已停止：不再创建和发送，运行中的委托已要求撤单"));
}

bool HaltButton::wantsToResume()
{
    ZelMessageBox box(QStringLiteral("恢复交易"),
                      QStringLiteral("恢复全部账户的创建和发送？\n%1").arg(mReasons.trimmed()),
                      ZelMessageBox::Question, this);
    return box.showModally() == QDialog::Accepted;
}
