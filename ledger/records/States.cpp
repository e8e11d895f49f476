#include "ledger/records/States.h"

#include "words/Words.h"

#include <QHash>

namespace ledger {

namespace {

using State = InstanceState;

struct BatchRow {
    const char* name;
    const char* shown;
};

// In the order of the enumerators.
constexpr BatchRow BatchStates[] = {{"created", QT_TRANSLATE_NOOP("Words", "已创建")},
                                    {"waiting", QT_TRANSLATE_NOOP("Words", "待复核")},
                                    {"withdrawn", QT_TRANSLATE_NOOP("Words", "已撤销")},
                                    {"partly_reversed", QT_TRANSLATE_NOOP("Words", "部分撤销")},
                                    {"refused", QT_TRANSLATE_NOOP("Words", "复核拒绝")},
                                    {"lapsed", QT_TRANSLATE_NOOP("Words", "已失效")}};

struct InstanceRow {
    State state;
    const char* name;
    const char* shown;
    QList<State> next;      ///< what may become of it
    QList<State> corrected; ///< what a bust or a correction may make of it besides
};

/// The life of an instance. From `sending` on the counterparty may have it, and everything that it can say of
/// an order may come, in any order; what it never had goes back or is withdrawn.
const QList<InstanceRow>& lives()
{
    static const QList<State> said{State::Running,  State::Stopping, State::Stopped,
                                   State::Finished, State::Sending,  State::Rejected,
                                   State::Unknown,  State::Queued,   State::Withdrawn};
    static const QList<InstanceRow> rows{
        {State::Created,
         "created",
         QT_TRANSLATE_NOOP("Words", "未启动"),
         {State::Queued, State::Running, State::Withdrawn},
         {}},
        {State::Queued,
         "queued",
         QT_TRANSLATE_NOOP("Words", "待发送"),
         {State::Sending, State::Rejected, State::Withdrawn},
         {}},
        {State::Sending, "sending", QT_TRANSLATE_NOOP("Words", "发送中"), said, {}},
        {State::Running, "running", QT_TRANSLATE_NOOP("Words", "运行中"), said, {}},
        {State::Stopping, "stopping", QT_TRANSLATE_NOOP("Words", "撤单中"), said, {}},
        {State::Stopped,
         "stopped",
         QT_TRANSLATE_NOOP("Words", "已撤单"),
         {State::Finished},
         {State::Running}},
        {State::Finished,
         "finished",
         QT_TRANSLATE_NOOP("Words", "已完成"),
         {},
         {State::Running, State::Stopped}},
        {State::Rejected, "rejected", QT_TRANSLATE_NOOP("Words", "已拒绝"), {}, {}},
        {State::Unknown, "unknown", QT_TRANSLATE_NOOP("Words", "待核对"), said, {}},
        {State::Withdrawn, "withdrawn", QT_TRANSLATE_NOOP("Words", "已撤回"), {}, {}},
    };
    return rows;
}

const InstanceRow& lifeOf(State state)
{
    return lives().at(static_cast<int>(state));
}

} // namespace

QString nameOf(BatchState state)
{
    return QString::fromLatin1(BatchStates[static_cast<int>(state)].name);
}

QString nameOf(InstanceState state)
{
    return QString::fromLatin1(lifeOf(state).name);
}

QString shownName(BatchState state)
{
    return Words::tr(BatchStates[static_cast<int>(state)].shown);
}

QString shownName(InstanceState state)
{
    return Words::tr(lifeOf(state).shown);
}

BatchState batchStateNamed(const QString& name)
{
    for (int i = 0; i < static_cast<int>(BatchState::Lapsed); ++i) {
        if (nameOf(static_cast<BatchState>(i)) == name) {
            return static_cast<BatchState>(i);
        }
    }
    return BatchState::Lapsed;
}

InstanceState instanceStateNamed(const QString& name)
{
    static const QHash<QString, State> byName = [] {
        QHash<QString, State> made;
        for (const InstanceRow& row : lives()) {
            made.insert(QString::fromLatin1(row.name), row.state);
        }
        return made;
    }();
    return byName.value(name, State::Unknown);
}

const QList<InstanceState>& allInstanceStates()
{
    static const QList<State> states = [] {
        QList<State> made;
        for (const InstanceRow& row : lives()) {
            made.append(row.state);
        }
        return made;
    }();
    return states;
}

bool mayBecome(InstanceState before, InstanceState after)
{
    return lifeOf(before).next.contains(after);
}

bool mayBecomeByCorrection(InstanceState before, InstanceState after)
{
    return mayBecome(before, after) || lifeOf(before).corrected.contains(after);
}

bool mayBeStarted(InstanceState state)
{
    return state == State::Created;
}

bool mayBeStopped(InstanceState state)
{
    return state == State::Queued || state == State::Sending || state == State::Running ||
           state == State::Unknown;
}

/// What the counterparty may have is withdrawn where it turns out that it never had it.
bool mayBeWithdrawn(InstanceState state)
{
    return state == State::Created || state == State::Queued || state == State::Sending ||
           state == State::Unknown;
}

bool isOver(InstanceState state)
{
    return state == State::Stopped || state == State::Finished || state == State::Rejected ||
           state == State::Withdrawn;
}

bool isOpen(InstanceState state)
{
    return state == State::Sending || state == State::Running || state == State::Stopping ||
           state == State::Unknown;
}

} // namespace ledger
