#include "desk/window/VerdictDialog.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTextEdit>
#include <QVBoxLayout>

namespace {

constexpr int Width = 520;
constexpr int MostLines = 6; // of findings without a scroll bar

QLabel* makeLabel(const QString& text, const QString& role, QWidget* parent)
{
    auto* label = new QLabel(text, parent);
    label->setTextFormat(Qt::PlainText); // findings name what stands in files
    label->setWordWrap(true);
    label->setProperty("role", role);
    return label;
}

} // namespace

VerdictDialog::VerdictDialog(const ledger::Review& review, QWidget* parent) : QDialog(parent), mReview(review)
{
    setWindowTitle(QStringLiteral("创建前检查"));
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    setMinimumWidth(Width);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(16, 14, 16, 12);
    column->setSpacing(8);
    addSummary(column);
    addFindings(column, QStringLiteral("不能创建"), review.verdict.refusals, QStringLiteral("error"));
    addFindings(column, QStringLiteral("请留意"), review.verdict.warnings, QStringLiteral("warning"));
    addAmount(column);
    addButtons(column);
    showWhetherAllowed();
}

bool VerdictDialog::isNeeded(const ledger::Verdict& verdict)
{
    return verdict.refuses() || !verdict.warnings.isEmpty() || verdict.confirmationAmount > 0;
}

ledger::Consent VerdictDialog::consent() const
{
    ledger::Consent consent;
    consent.toWarnings = true;
    consent.typedAmount = mAmount ? mAmount->text() : QString();
    return consent;
}

void VerdictDialog::addSummary(QVBoxLayout* column)
{
    const ledger::BatchDraft& draft = mReview.draft;
    column->addWidget(makeLabel(
        QStringLiteral("%1 · %2 · %3 个实例").arg(draft.account, draft.strategy).arg(draft.instances.size()),
        QStringLiteral("heading"), this));
    auto* amounts = new QHBoxLayout;
    amounts->setSpacing(24);
    amounts->addWidget(makeLabel(QStringLiteral("买入合计 %1 元").arg(mReview.verdict.grossBuy.shown(2)),
                                 QStringLiteral("buy"), this));
    amounts->addWidget(makeLabel(QStringLiteral("卖出合计 %1 元").arg(mReview.verdict.grossSell.shown(2)),
                                 QStringLiteral("sell"), this));
    amounts->addStretch();
    column->addLayout(amounts);
}

void VerdictDialog::addFindings(QVBoxLayout* column, const QString& title,
                                const QList<ledger::Finding>& findings, const QString& role)
{
    if (findings.isEmpty()) {
        return;
    }
    column->addSpacing(4);
    column->addWidget(makeLabel(title, role, this));
    QStringList lines;
    for (const ledger::Finding& finding : findings) {
        lines.append(finding.text);
    }
    auto* text = new QTextEdit(this);
    text->setObjectName(QStringLiteral("findings_") + role);
    text->setAccessibleName(title);
    text->setReadOnly(true);
    text->setTabChangesFocus(true);
    text->setPlainText(lines.join(QLatin1Char('\n')));
    text->setFixedHeight((qMin(lines.size(), MostLines) + 1) * text->fontMetrics().lineSpacing());
    column->addWidget(text);
}

void VerdictDialog::addAmount(QVBoxLayout* column)
{
    const ledger::Verdict& verdict = mReview.verdict;
    if (verdict.refuses() || verdict.confirmationAmount <= 0) {
        return;
    }
    column->addSpacing(4);
    column->addWidget(makeLabel(QStringLiteral("金额较大，请再输入一次合计金额（整数元）：%1")
                                    .arg(ledger::Decimal(verdict.confirmationAmount).shown(0)),
                                QStringLiteral("heading"), this));
    mAmount = new QLineEdit(this);
    mAmount->setObjectName(QStringLiteral("edit_amount"));
    mAmount->setAccessibleName(QStringLiteral("合计金额"));
    connect(mAmount, &QLineEdit::textChanged, this, &VerdictDialog::showWhetherAllowed);
    column->addWidget(mAmount);
}

void VerdictDialog::addButtons(QVBoxLayout* column)
{
    mCancel =
        new QPushButton(mReview.verdict.refuses() ? QStringLiteral("关闭") : QStringLiteral("取消"), this);
    mCancel->setObjectName(QStringLiteral("button_cancel"));
    mCancel->setAutoDefault(false);
    connect(mCancel, &QPushButton::clicked, this, &QDialog::reject);
    auto* row = new QHBoxLayout;
    row->addStretch();
    if (!mReview.verdict.refuses()) {
        mCreate = new QPushButton(
            mReview.verdict.warnings.isEmpty() ? QStringLiteral("创建") : QStringLiteral("仍然创建"), this);
        mCreate->setObjectName(QStringLiteral("button_create"));
        mCreate->setAutoDefault(false);
        connect(mCreate, &QPushButton::clicked, this, &QDialog::accept);
        row->addWidget(mCreate);
    }
    row->addWidget(mCancel);
    column->addSpacing(6);
    column->addLayout(row);
    // A warning read in haste is answered by Enter: let that be the harmless answer.
    mCancel->setDefault(true);
    (mAmount ? static_cast<QWidget*>(mAmount) : mCancel)->setFocus();
}

void VerdictDialog::showWhetherAllowed()
{
    if (mCreate && mAmount) {
        const bool allowed = ledger::isConfirmedBy(mReview.verdict, mAmount->text());
        mCreate->setEnabled(allowed);
        mCreate->setDefault(allowed); // who typed the whole amount means it
        mCancel->setDefault(!allowed);
    }
}
