#include "desk/window/HaltButton.h"

#include "embedded_host/widgets/PlainToolTip.h"
#include "host/ZelMessageBox.h"
#include "words/Words.h"

#include <QDialog>

namespace {

const QString Everyone = QStringLiteral("*");

} // namespace

HaltButton::HaltButton(const DeskBooks& books, QWidget* parent) : QPushButton(parent), mBooks(books)
{
    setObjectName(QStringLiteral("button_halt"));
    setAutoDefault(false);
    connect(this, &QPushButton::clicked, this, &HaltButton::press);
    refresh();
}

void HaltButton::refresh()
{
    setEnabled(mBooks.ledger != nullptr);
    const Outcome<ledger::Status> status =
        mBooks.ledger ? mBooks.ledger->status() : Outcome<ledger::Status>{{}, mBooks.ledgerError};
    if (status.ok()) {
        mReasons.clear();
        mIsHalted = false;
        for (const ledger::Halt& halt : status.value.halts) {
            mIsHalted = mIsHalted || halt.account == Everyone;
            const QString whom = halt.account == Everyone ? Words::tr("全部账户") : halt.account;
            mReasons += Words::tr("%1：%2（%3）\n").arg(whom, halt.reason, halt.by);
        }
    }
    setText(mIsHalted ? Words::tr("恢复交易…") : Words::tr("停止交易"));
    setToolTip(mReasons.isEmpty() ? Words::tr("停止全部账户的创建和发送，并要求撤销运行中的委托")
                                  : plainToolTip(mReasons.trimmed()));
}

void HaltButton::press()
{
    refresh();
    if (mIsHalted && !wantsToResume()) {
        return;
    }
    const bool wasHalted = mIsHalted;
    const Outcome<void> done = wasHalted ? mBooks.ledger->resume(Everyone, Words::tr("交易台按钮"))
                                         : mBooks.ledger->halt(Everyone, Words::tr("交易台按钮"));
    refresh();
    emit said(!done.ok()  ? done.error
              : wasHalted ? Words::tr("交易已恢复")
                          : Words::tr("交易已停止：不再创建和发送，运行中的委托已要求撤单"));
}

bool HaltButton::wantsToResume()
{
    ZelMessageBox box(Words::tr("恢复交易"),
                      Words::tr("恢复全部账户的创建和发送？\n%1").arg(mReasons.trimmed()),
                      ZelMessageBox::Question, this);
    return box.showModally() == QDialog::Accepted;
}
