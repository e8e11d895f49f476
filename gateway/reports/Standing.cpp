#include "gateway/reports/Standing.h"

namespace gateway {

QString nameOf(State state)
{
    switch (state) {
    case State::Created:
        return QStringLiteral("created");
    case State::Queued:
        return QStringLiteral("queued");
    case State::Sending:
        return QStringLiteral("sending");
    case State::Running:
        return QStringLiteral("running");
    case State::Stopping:
        return QStringLiteral("stopping");
    case State::Stopped:
        return QStringLiteral("stopped");
    case State::Finished:
        return QStringLiteral("finished");
    case State::Rejected:
        return QStringLiteral("rejected");
    case State::Unknown:
        return QStringLiteral("unknown");
    case State::Withdrawn:
        break;
    }
    return QStringLiteral("withdrawn");
}

bool isOpen(State state)
{
    return state == State::Sending || state == State::Running || state == State::Stopping ||
           state == State::Unknown;
}

bool isOver(State state)
{
    return state == State::Stopped || state == State::Finished || state == State::Rejected;
}

bool operator==(const Fill& left, const Fill& right)
{
    return left.quantity == right.quantity && left.averagePrice == right.averagePrice;
}

bool operator==(const Standing& left, const Standing& right)
{
    return left.state == right.state && left.fill == right.fill && left.legs == right.legs &&
           left.reason == right.reason && left.cancelAsked == right.cancelAsked;
}

} // namespace gateway
