#include "desk/window/InstanceActions.h"

#include "desk/models/InstancesModel.h"
#include "desk/models/Money.h"
#include "desk/window/DeskBooks.h"
#include "desk/window/FilteredTable.h"
#include "host/ZelMessageBox.h"
#include "words/Words.h"

#include <QAction>
#include <QMap>
#include <QPushButton>
#include <QTableView>

#include <algorithm>

using ledger::ChangedInstance;
using ledger::Instance;
using ledger::InstanceState;

struct InstanceActions::Deed {
    const char* objectName;
    const char* name;
    const char* question; ///< %1: how many
    const char* none;     ///< said where it does nothing to any of them
    const char* summary;  ///< %1: how many, %2: in which states they are now
    QKeySequence key;
    bool (*applies)(InstanceState state);
    Outcome<QList<ChangedInstance>> (ledger::Ledger::*act)(const ledger::Selection& selection);
};

namespace {

ledger::Gross grossOf(const QList<Instance>& instances)
{
    ledger::Gross gross;
    for (const Instance& instance : instances) {
        for (const ledger::Leg& leg : instance.legs) {
            gross.buy += leg.buys() ? leg.amount : ledger::Decimal();
            gross.sell += leg.sells() ? leg.amount : ledger::Decimal();
        }
    }
    return gross;
}

QString lineOf(const ChangedInstance& changed)
{
    const QString instance =
        changed.id.text() + QLatin1Char(' ') + changed.symbols.join(QStringLiteral(" / "));
    return changed.refusal.isEmpty()
               ? Words::tr("%1：%2 → %3")
                     .arg(instance, ledger::shownName(changed.before), ledger::shownName(changed.after))
               : Words::tr("%1：未变更，%2").arg(instance, changed.refusal);
}

/// "撤单中 2，已撤单 1"
QString statesOf(const QList<ChangedInstance>& changed)
{
    QMap<InstanceState, int> counts;
    for (const ChangedInstance& one : changed) {
        counts[one.after] += one.refusal.isEmpty() ? 1 : 0;
    }
    QStringList parts;
    for (auto count = counts.cbegin(); count != counts.cend(); ++count) {
        if (*count > 0) {
            parts.append(QStringLiteral("%1 %2").arg(ledger::shownName(count.key())).arg(*count));
        }
    }
    return parts.join(Words::tr("，"));
}

} // namespace

const QList<InstanceActions::Deed>& InstanceActions::deeds()
{
    static const QList<Deed> all = {
        {"start", QT_TRANSLATE_NOOP("Words", "启动"), QT_TRANSLATE_NOOP("Words", "启动 %1 个实例？"),
         QT_TRANSLATE_NOOP("Words", "选中的实例没有未启动的"),
         QT_TRANSLATE_NOOP("Words", "启动 %1 个实例：%2"), QKeySequence(Qt::Key_F9), ledger::mayBeStarted,
         &ledger::Ledger::start},
        {"stop", QT_TRANSLATE_NOOP("Words", "停止"), QT_TRANSLATE_NOOP("Words", "停止 %1 个实例？"),
         QT_TRANSLATE_NOOP("Words", "选中的实例没有待发送或在运行的"),
         QT_TRANSLATE_NOOP("Words", "停止 %1 个实例：%2"), QKeySequence(Qt::SHIFT + Qt::Key_F9),
         ledger::mayBeStopped, &ledger::Ledger::stop},
        {"withdraw", QT_TRANSLATE_NOOP("Words", "撤回"), QT_TRANSLATE_NOOP("Words", "撤回 %1 个实例？"),
         QT_TRANSLATE_NOOP("Words", "选中的实例都已发往市场或已结束，不能撤回"),
         QT_TRANSLATE_NOOP("Words", "撤回 %1 个实例：%2"), QKeySequence(Qt::Key_Delete),
         ledger::mayBeWithdrawn, &ledger::Ledger::withdraw},
    };
    return all;
}

InstanceActions::InstanceActions(const DeskBooks& books, InstancesModel& model, FilteredTable& table)
    : QObject(&table), mBooks(books), mModel(model), mTable(table)
{
    for (const Deed& deed : deeds()) {
        offer(deed);
    }
    connect(&table, &FilteredTable::selectionChanged, this, &InstanceActions::refresh);
    connect(&model, &QAbstractItemModel::dataChanged, this, &InstanceActions::refresh);
    connect(&model, &QAbstractItemModel::modelReset, this, &InstanceActions::refresh);
    refresh();
}

InstanceActions::~InstanceActions() = default;

void InstanceActions::offer(const Deed& deed)
{
    const QString name = Words::tr(deed.name);
    auto* action = new QAction(name, this);
    action->setObjectName(QStringLiteral("action_") + QLatin1String(deed.objectName));
    action->setShortcut(deed.key);
    action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
    mTable.view()->addAction(action);
    QPushButton* button = mTable.addButton(name, QStringLiteral("button_") + QLatin1String(deed.objectName));
    connect(button, &QPushButton::clicked, action, &QAction::trigger);
    connect(action, &QAction::triggered, this, [this, &deed] { perform(deed); });
    mOffers.append({&deed, action, button});
}

QList<Instance> InstanceActions::selected() const
{
    QList<Instance> instances;
    const QList<int> rows = mTable.selectedRows();
    for (const int row : rows) {
        if (row < mModel.records().size()) {
            instances.append(mModel.records().at(row));
        }
    }
    return instances;
}

QString InstanceActions::summary() const
{
    const QList<Instance> instances = selected();
    const ledger::Gross gross = grossOf(instances);
    return instances.isEmpty() ? QString()
                               : Words::tr("已选 %1 个：买入 %2，卖出 %3")
                                     .arg(QString::number(instances.size()), money::shown(gross.buy),
                                          money::shown(gross.sell));
}

void InstanceActions::refresh()
{
    const QList<Instance> instances = selected();
    for (const Offer& offer : qAsConst(mOffers)) {
        const bool isAllowed =
            mBooks.ledger && std::any_of(instances.begin(), instances.end(), [&](const Instance& instance) {
                return offer.deed->applies(instance.state);
            });
        const QString key = offer.deed->key.toString(QKeySequence::NativeText);
        offer.action->setEnabled(isAllowed);
        offer.button->setEnabled(isAllowed);
        offer.button->setToolTip(isAllowed ? Words::tr("%1（%2）").arg(offer.action->text(), key)
                                 : instances.isEmpty() ? Words::tr("先选择实例")
                                                       : Words::tr(offer.deed->none));
    }
}

void InstanceActions::perform(const Deed& deed)
{
    const QList<Instance> instances = selected();
    QList<Instance> allowed;
    std::copy_if(instances.begin(), instances.end(), std::back_inserter(allowed),
                 [&](const Instance& instance) { return deed.applies(instance.state); });
    if (allowed.isEmpty() || !isWanted(deed, allowed, instances.size() - allowed.size())) {
        return;
    }
    ledger::Selection selection; // as they were named in the question, whatever is selected by now
    selection.isEachByItself = true;
    for (const Instance& instance : qAsConst(allowed)) {
        selection.ids.append(instance.id);
    }
    const Outcome<QList<ChangedInstance>> changed = (mBooks.ledger.get()->*deed.act)(selection);
    if (!changed.ok()) {
        emit failed(changed.error);
        return;
    }
    QStringList results;
    int count = 0;
    for (const ChangedInstance& one : changed.value) {
        results.append(lineOf(one));
        count += one.refusal.isEmpty() ? 1 : 0;
    }
    QString summary = Words::tr(deed.summary).arg(QString::number(count), statesOf(changed.value));
    if (count < changed.value.size()) {
        summary = Words::tr("%1；%2 个未变更").arg(summary).arg(changed.value.size() - count);
    }
    emit done(summary, results);
}

bool InstanceActions::isWanted(const Deed& deed, const QList<Instance>& allowed, int others) const
{
    const ledger::Gross gross = grossOf(allowed);
    QStringList lines{Words::tr(deed.question).arg(allowed.size()),
                      Words::tr("买入 %1，卖出 %2").arg(money::shown(gross.buy), money::shown(gross.sell))};
    if (others > 0) {
        lines.append(Words::tr("另选中的 %1 个因状态不适用，保持不变。").arg(others));
    }
    ZelMessageBox box(Words::tr(deed.name), lines.join(QLatin1Char('\n')), ZelMessageBox::Question,
                      mTable.window());
    return box.showModally() == QDialog::Accepted;
}
