#include "desk/window/VerdictDialog.h"

#include "words/Words.h"

#include <QCheckBox>
#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMap>
#include <QPushButton>
#include <QScrollArea>
#include <QTextEdit>
#include <QVBoxLayout>

#include <algorithm>

namespace {

constexpr int Width = 560;
constexpr int MostLines = 6; // of findings without a scroll bar

QLabel* makeLabel(const QString& text, const QString& role, QWidget* parent)
{
    auto* label = new QLabel(text, parent);
    label->setTextFormat(Qt::PlainText); // findings name what stands in files
    label->setWordWrap(true);
    label->setProperty("role", role);
    return label;
}

QStringList textsOf(const QList<verdict::Line>& lines)
{
    QStringList texts;
    for (const verdict::Line& line : lines) {
        texts.append(line.text);
    }
    return texts;
}

constexpr int MostLinks = 12; // to rows of one rule

} // namespace

VerdictDialog::VerdictDialog(const verdict::Judgement& judgement, const QList<qint64>& others,
                             QWidget* parent)
    : QDialog(parent), mJudgement(judgement)
{
    setWindowTitle(Words::tr("创建前检查"));
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    setMinimumWidth(Width);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(16, 14, 16, 12);
    column->setSpacing(8);
    if (!others.isEmpty()) {
        addChoices(column, others);
    }
    build();
}

void VerdictDialog::addChoices(QVBoxLayout* column, const QList<qint64>& others)
{
    using Way = verdict::DuplicateChoice::Way;
    mChoice = new QComboBox(this);
    mChoice->setObjectName(QStringLiteral("combo_duplicates"));
    mChoice->setAccessibleName(Words::tr("与已有批次重复时"));
    const auto add = [this](const QString& text, const verdict::DuplicateChoice& choice) {
        mChoice->addItem(text);
        mChoices.append(choice);
    };
    add(Words::tr("全部创建，重复的逐条确认"), {});
    add(Words::tr("台账中已有的行不再创建"), {Way::LeaveOut, 0});
    for (const qint64 other : others) {
        add(Words::tr("只创建与批次 %1 相比有变更的行").arg(other), {Way::ChangedOnly, other});
    }
    for (const qint64 other : others) {
        add(Words::tr("撤回批次 %1，以本批替换").arg(other), {Way::Replace, other});
    }
    connect(mChoice, qOverload<int>(&QComboBox::activated), this,
            [this](int index) { emit choiceWanted(mChoices.at(index)); });
    auto* caption = makeLabel(Words::tr("与已有批次重复时(&D)："), QStringLiteral("heading"), this);
    caption->setBuddy(mChoice);
    mChoiceFault = makeLabel(QString(), QStringLiteral("error"), this);
    mChoiceFault->setObjectName(QStringLiteral("label_choiceFault"));
    mChoiceFault->hide();
    auto* row = new QHBoxLayout;
    row->addWidget(caption);
    row->addWidget(mChoice, 1);
    column->addLayout(row);
    column->addWidget(mChoiceFault);
}

void VerdictDialog::showJudgement(const verdict::Judgement& judgement)
{
    mJudgement = judgement;
    if (mChoiceFault != nullptr) {
        mChoiceFault->hide();
    }
    build();
    if (mChoice != nullptr) {
        mChoice->setFocus();
    }
}

void VerdictDialog::refuseChoice(const QString& reason)
{
    const auto isHeld = [this](const verdict::DuplicateChoice& choice) {
        return choice.way == mJudgement.choice.way && choice.against == mJudgement.choice.against;
    };
    const auto held = std::find_if(mChoices.begin(), mChoices.end(), isHeld);
    mChoice->setCurrentIndex(static_cast<int>(held - mChoices.begin()));
    mChoiceFault->setText(reason);
    mChoiceFault->show();
}

void VerdictDialog::build()
{
    using verdict::Action;
    delete mBody;
    mQuestions.clear();
    mAmount = nullptr;
    mCreate = nullptr;
    mBody = new QWidget(this);
    layout()->addWidget(mBody);
    auto* column = new QVBoxLayout(mBody);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(8);
    addSummary(column);
    QStringList refusals = textsOf(mJudgement.linesWith(Action::Refuse));
    if (mJudgement.isEmpty()) {
        refusals.append(verdict::objection(mJudgement, {}));
    }
    addText(column, Words::tr("不能创建"), refusals, QStringLiteral("error"));
    addQuestions(column);
    addText(column, Words::tr("提示"), textsOf(mJudgement.linesWith(Action::Tell)), QStringLiteral("notice"));
    addAmount(column);
    addButtons(column);
    showWhetherAllowed();
}

verdict::Acceptance VerdictDialog::acceptance() const
{
    verdict::Acceptance acceptance;
    for (const QCheckBox* question : mQuestions) {
        if (question->isChecked()) {
            acceptance.rules.append(question->property("rule").toString());
        }
    }
    acceptance.typedAmount = mAmount ? mAmount->text() : QString();
    return acceptance;
}

void VerdictDialog::addSummary(QVBoxLayout* column)
{
    const ledger::BatchDraft& draft = mJudgement.review.draft;
    const ledger::Verdict& verdict = mJudgement.review.verdict;
    column->addWidget(
        makeLabel(Words::tr("%1 · %2 · %3 个实例")
                      .arg(draft.account, draft.strategy, QString::number(draft.instances.size())),
                  QStringLiteral("heading"), mBody));
    auto* amounts = new QHBoxLayout;
    amounts->setSpacing(24);
    amounts->addWidget(
        makeLabel(Words::tr("买入合计 %1 元").arg(verdict.grossBuy.shown(2)), QStringLiteral("buy"), mBody));
    amounts->addWidget(makeLabel(Words::tr("卖出合计 %1 元").arg(verdict.grossSell.shown(2)),
                                 QStringLiteral("sell"), mBody));
    amounts->addStretch();
    column->addLayout(amounts);
    addText(column, Words::tr("摘要"), verdict::linesOf(mJudgement.summary), QStringLiteral("summary"));
}

void VerdictDialog::addText(QVBoxLayout* column, const QString& title, const QStringList& lines,
                            const QString& role)
{
    if (lines.isEmpty()) {
        return;
    }
    column->addSpacing(4);
    column->addWidget(makeLabel(title, role, mBody));
    auto* text = new QTextEdit(mBody);
    text->setObjectName(QStringLiteral("findings_") + role);
    text->setAccessibleName(title);
    text->setReadOnly(true);
    text->setTabChangesFocus(true);
    text->setPlainText(lines.join(QLatin1Char('\n')));
    text->setFixedHeight((qMin(lines.size(), MostLines) + 1) * text->fontMetrics().lineSpacing());
    column->addWidget(text);
}

/// Each rule by itself: there is no yes to all.
void VerdictDialog::addQuestions(QVBoxLayout* column)
{
    const QList<verdict::Line> lines = mJudgement.linesWith(verdict::Action::Ask);
    if (lines.isEmpty()) {
        return;
    }
    column->addSpacing(4);
    column->addWidget(makeLabel(Words::tr("请逐条确认"), QStringLiteral("warning"), mBody));
    auto* list = new QWidget;
    auto* rows = new QVBoxLayout(list);
    for (const verdict::Line& line : lines) {
        auto* question = new QCheckBox(list);
        question->setObjectName(QStringLiteral("check_") + line.rule);
        question->setProperty("rule", line.rule);
        question->setAccessibleName(line.text);
        question->setEnabled(!isForbidden());
        connect(question, &QCheckBox::toggled, this, &VerdictDialog::showWhetherAllowed);
        mQuestions.append(question);
        auto* row = new QHBoxLayout;
        row->addWidget(question, 0, Qt::AlignTop);
        row->addWidget(makeLabel(line.text, QStringLiteral("caption"), list), 1);
        rows->addLayout(row);
        if (QLabel* places = makeRows(line)) {
            rows->addWidget(places);
        }
    }
    rows->addStretch();
    auto* area = new QScrollArea(mBody);
    area->setWidgetResizable(true);
    area->setWidget(list);
    area->setMinimumHeight((qMin(lines.size(), MostLines) * 2 + 1) * fontMetrics().lineSpacing());
    column->addWidget(area, 1);
}

/// Rows of the batch to jump to; null where the rule is about none.
QLabel* VerdictDialog::makeRows(const verdict::Line& line)
{
    QMap<int, int> lineOfRow;
    for (const table::Fault& fault : line.faults) {
        if (fault.row > 0) {
            lineOfRow.insert(fault.row, fault.line);
        }
    }
    // A row of the file is known by its line, however the table is sorted.
    const bool hasLines = !lineOfRow.values().contains(0);
    QStringList links;
    for (auto row = lineOfRow.cbegin(); row != lineOfRow.cend() && links.size() < MostLinks; ++row) {
        links.append(QStringLiteral("<a href=\"%1\">%2</a>").arg(row.key()).arg(hasLines ? *row : row.key()));
    }
    // The rows that the import refused are in no batch.
    if (links.isEmpty() || line.rule == QLatin1String("rows.missing")) {
        return nullptr;
    }
    auto* places = new QLabel((hasLines ? Words::tr("转到文件行 %1") : Words::tr("转到表格行 %1"))
                                  .arg(links.join(QLatin1Char(' '))),
                              mBody);
    places->setTextFormat(Qt::RichText); // numbers alone
    places->setTextInteractionFlags(Qt::LinksAccessibleByMouse | Qt::LinksAccessibleByKeyboard);
    connect(places, &QLabel::linkActivated, this,
            [this](const QString& row) { emit rowWanted(row.toInt()); });
    return places;
}

void VerdictDialog::addAmount(QVBoxLayout* column)
{
    const ledger::Verdict& verdict = mJudgement.review.verdict;
    if (isForbidden() || verdict.confirmationAmount <= 0) {
        return;
    }
    column->addSpacing(4);
    column->addWidget(makeLabel(Words::tr("金额较大，请再输入一次合计金额（整数元）：%1")
                                    .arg(ledger::Decimal(verdict.confirmationAmount).shown(0)),
                                QStringLiteral("heading"), mBody));
    mAmount = new QLineEdit(mBody);
    mAmount->setObjectName(QStringLiteral("edit_amount"));
    mAmount->setAccessibleName(Words::tr("合计金额"));
    connect(mAmount, &QLineEdit::textChanged, this, &VerdictDialog::showWhetherAllowed);
    column->addWidget(mAmount);
}

void VerdictDialog::addButtons(QVBoxLayout* column)
{
    mCancel = new QPushButton(isForbidden() ? Words::tr("关闭") : Words::tr("取消"), mBody);
    mCancel->setObjectName(QStringLiteral("button_cancel"));
    mCancel->setAutoDefault(false);
    connect(mCancel, &QPushButton::clicked, this, &QDialog::reject);
    auto* row = new QHBoxLayout;
    row->addStretch();
    if (!isForbidden()) {
        mCreate = new QPushButton(mQuestions.isEmpty() ? Words::tr("创建") : Words::tr("仍然创建"), mBody);
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
    if (!mCreate) {
        return;
    }
    const bool hasAmount = !mAmount || ledger::isConfirmedBy(mJudgement.review.verdict, mAmount->text());
    const bool isAnswered = std::all_of(mQuestions.begin(), mQuestions.end(),
                                        [](const QCheckBox* question) { return question->isChecked(); });
    mCreate->setEnabled(hasAmount && isAnswered);
    const bool isMeant = mAmount && hasAmount && isAnswered; // who typed the whole amount means it
    mCreate->setDefault(isMeant);
    mCancel->setDefault(!isMeant);
}
