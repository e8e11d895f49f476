// The program's own gettimeofday(), which Qt asks for the time: the linker prefers it to the C library's.

#include "tests/support/DeskClock.h"

#include <sys/time.h>

#include <QtGlobal>

#include <atomic>
#include <ctime>

namespace {

std::atomic<qint64> ahead{0}; ///< seconds, of the system's clock

qint64 systemSeconds()
{
    return qint64(std::time(nullptr));
}

void stand(const QByteArray& zone)
{
    qputenv("TZ", zone);
    tzset();
}

} // namespace

extern "C" int gettimeofday(timeval* now, void* /*zone*/) noexcept
{
    timespec time{};
    const int result = clock_gettime(CLOCK_REALTIME, &time);
    now->tv_sec = time.tv_sec + time_t(ahead);
    now->tv_usec = time.tv_nsec / 1000;
    return result;
}

DeskClock::DeskClock(const char* now) : mZone(qgetenv("TZ"))
{
    stand("Asia/Shanghai");
    const QDateTime wanted =
        QDateTime::fromString(QString::fromLatin1(now), QStringLiteral("yyyy-MM-dd HH:mm:ss"));
    ahead = wanted.toSecsSinceEpoch() - systemSeconds();
}

DeskClock::~DeskClock()
{
    ahead = 0;
    stand(mZone);
}
