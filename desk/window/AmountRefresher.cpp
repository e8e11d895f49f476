#include "desk/window/AmountRefresher.h"

#include "embedded_host/quotes/QuoteBoard.h"

#include <QApplication>
#include <QEvent>

AmountRefresher::AmountRefresher(QuoteBoard& quotes, QObject* parent) : QObject(parent)
{
    mTimer.setSingleShot(true);
    mSinceRefresh.start();
    mSinceTouch.start();
    connect(&mTimer, &QTimer::timeout, this, &AmountRefresher::refreshWhenUseful);
    connect(&quotes, &QuoteBoard::quotesChanged, this, &AmountRefresher::noteQuotes, Qt::QueuedConnection);
    QApplication::instance()->installEventFilter(this);
}

void AmountRefresher::setDialog(AlgoBatchImportParamSetting* dialog)
{
    mDialog = dialog;
}

void AmountRefresher::setPace(const Pace& pace)
{
    mPace = pace;
}

void AmountRefresher::refreshNow()
{
    if (!mDialog) {
        return;
    }
    mQuotesMoved = false;
    mTimer.stop();
    mDialog->slotUpdateAmount();
    mSinceRefresh.restart();
    emit refreshed();
}

bool AmountRefresher::eventFilter(QObject* watched, QEvent* event)
{
    switch (event->type()) {
    case QEvent::KeyPress:
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::Wheel:
    case QEvent::DragMove:
        mSinceTouch.restart();
        break;
    default:
        break;
    }
    return QObject::eventFilter(watched, event);
}

void AmountRefresher::noteQuotes()
{
    mQuotesMoved = true;
    if (!mTimer.isActive()) {
        refreshWhenUseful();
    }
}

void AmountRefresher::refreshWhenUseful()
{
    if (!mQuotesMoved || !mDialog) {
        return;
    }
    const qint64 wait =
        qMax(mPace.intervalMs - mSinceRefresh.elapsed(), mPace.stillMs - mSinceTouch.elapsed());
    if (wait > 0) {
        mTimer.start(int(wait));
    } else if (isUseful()) {
        refreshNow();
    } else {
        mTimer.start(mPace.intervalMs);
    }
}

bool AmountRefresher::isUseful() const
{
    return mDialog->isVisible() && !mDialog->window()->isMinimized() && !QApplication::activeModalWidget() &&
           !QApplication::activePopupWidget();
}
