#include "desk/window/ProblemFacets.h"

#include "desk/models/ProblemsModel.h"
#include "words/Words.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QHBoxLayout>
#include <QMap>
#include <QSignalBlocker>

namespace {

constexpr int WidestRule = 360; // pixels; a sentence may be long

QComboBox* makeBox(const char* name, const QString& spoken, QWidget* parent)
{
    auto* box = new QComboBox(parent);
    box->setObjectName(QString::fromLatin1(name));
    box->setAccessibleName(spoken);
    box->view()->setAccessibleName(spoken);
    box->setToolTip(spoken);
    box->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    return box;
}

/// Chooses the item of these data again, else the first one.
void chooseAgain(QComboBox* box, const QVariant& chosen)
{
    box->setCurrentIndex(qMax(0, box->findData(chosen)));
}

} // namespace

ProblemFacets::ProblemFacets(QWidget* parent)
    : QWidget(parent),
      mSeverities(makeBox("combo_severity", Words::tr("按严重程度筛选问题（F7 只看错误）"), this)),
      mRules(makeBox("combo_rule", Words::tr("按规则筛选问题"), this))
{
    mRules->setMaximumWidth(WidestRule);
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(6);
    row->addWidget(mSeverities);
    row->addWidget(mRules);
    row->addStretch(1);
    count({});
    for (QComboBox* box : {mSeverities, mRules}) {
        connect(box, QOverload<int>::of(&QComboBox::currentIndexChanged), this, &ProblemFacets::changed);
    }
}

void ProblemFacets::count(const Problems& problems)
{
    QMap<int, int> bySeverity;
    QMap<QString, int> byRule;
    for (const Problem& problem : problems) {
        ++bySeverity[-int(problem.fault.severity)]; // the worst first
        ++byRule[problem.fault.rule];
    }
    const QVariant severity = mSeverities->currentData();
    const QVariant rule = mRules->currentData();
    const QSignalBlocker quietly(mSeverities);
    const QSignalBlocker andQuietly(mRules);
    mSeverities->clear();
    mSeverities->addItem(Words::tr("全部 %1").arg(problems.size()));
    for (auto found = bySeverity.cbegin(); found != bySeverity.cend(); ++found) {
        const QString name = ProblemsModel::nameOf(table::Severity(-found.key()));
        mSeverities->addItem(Words::tr("%1 %2").arg(name).arg(*found), -found.key());
    }
    mRules->clear();
    mRules->addItem(Words::tr("全部规则 %1").arg(byRule.size()));
    for (auto found = byRule.cbegin(); found != byRule.cend(); ++found) {
        const QString title = ProblemsModel::titleOfRule(found.key());
        mRules->addItem(Words::tr("%1 × %2").arg(*found).arg(title), found.key());
        mRules->setItemData(mRules->count() - 1, title, Qt::ToolTipRole);
    }
    chooseAgain(mSeverities, severity);
    chooseAgain(mRules, rule);
}

void ProblemFacets::clear()
{
    mSeverities->setCurrentIndex(0);
    mRules->setCurrentIndex(0);
}

bool ProblemFacets::accepts(const Problem& problem) const
{
    const QVariant severity = mSeverities->currentData();
    const QVariant rule = mRules->currentData();
    return (!severity.isValid() || severity.toInt() == int(problem.fault.severity)) &&
           (!rule.isValid() || rule.toString() == problem.fault.rule);
}

bool ProblemFacets::isOpen() const
{
    return mSeverities->currentIndex() == 0 && mRules->currentIndex() == 0;
}

void ProblemFacets::toggleErrors()
{
    const int errors = mSeverities->findData(int(table::Severity::Error));
    const bool isChosen = errors > 0 && mSeverities->currentIndex() == errors;
    mSeverities->setCurrentIndex(isChosen || errors < 0 ? 0 : errors);
}
