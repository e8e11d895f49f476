#include "desk/window/FileDigest.h"

#include "desk/window/Waiting.h"
#include "words/Words.h"

#include <atomic>
#include <thread>

namespace {

constexpr int PollMs = 20;

} // namespace

struct FileDigest::Work {
    std::atomic<bool> done{false};
    Outcome<QString> digest; // to be read once `done`
};

FileDigest::FileDigest(QObject* parent) : QObject(parent)
{
    mPoll.setInterval(PollMs);
    connect(&mPoll, &QTimer::timeout, this, &FileDigest::announce);
}

void FileDigest::start(const Take& take)
{
    auto work = std::make_shared<Work>();
    mWork = work;
    // Nothing waits for it at the end of the program: it only reads, into memory that it shares.
    std::thread([work, take] {
        work->digest = take();
        work->done = true;
    }).detach();
    mPoll.start(); // the thread may outlive this object, so it is asked and does not call
}

void FileDigest::announce()
{
    if (mWork->done) {
        mPoll.stop();
        emit taken(mWork->digest.value);
    }
}

Outcome<QString> FileDigest::wait(QWidget* parent, bool& cancelled) const
{
    cancelled = false;
    const std::shared_ptr<Work> work = mWork; // another file may be started while events are processed
    if (!work) {
        return {};
    }
    cancelled = !waiting::until([work] { return work->done.load(); }, Words::tr("正在计算文件指纹…"), parent);
    if (cancelled) {
        return {};
    }
    return work->digest;
}
