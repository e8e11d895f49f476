#include "desk/window/Waiting.h"

#include "words/Words.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QProgressDialog>
#include <QThread>

namespace waiting {

namespace {

constexpr int BlinkMs = 100;
constexpr int PatienceMs = 300; // before the progress is shown
constexpr int PollMs = 20;

bool isDoneInABlink(const std::function<bool()>& isDone)
{
    QElapsedTimer passed;
    passed.start();
    while (!isDone() && passed.elapsed() < BlinkMs) {
        QThread::msleep(1);
    }
    return isDone();
}

} // namespace

bool until(const std::function<bool()>& isDone, const QString& text, QWidget* parent)
{
    if (isDoneInABlink(isDone)) {
        return true;
    }
    QProgressDialog progress(text, Words::tr("取消"), 0, 0, parent);
    progress.setWindowModality(Qt::WindowModal);
    progress.setMinimumDuration(PatienceMs);
    while (!isDone()) {
        progress.setValue(0);
        // Until the progress keeps them from the window, clicks and keys wait.
        QCoreApplication::processEvents(
            progress.isVisible() ? QEventLoop::AllEvents : QEventLoop::ExcludeUserInputEvents, PollMs);
        if (progress.wasCanceled()) {
            return false;
        }
        QThread::msleep(PollMs);
    }
    return true;
}

} // namespace waiting
