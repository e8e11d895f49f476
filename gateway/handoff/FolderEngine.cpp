#include "gateway/handoff/FolderEngine.h"

#include "gateway/handoff/AnswerSheet.h"
#include "gateway/handoff/OrderSheet.h"
#include "words/Words.h"

#include <sys/stat.h>

#include <QFile>
#include <QFileInfo>

namespace gateway {

namespace {

const std::chrono::milliseconds PauseBetweenLooks(100);
const int MostFilesInALook = 500;
const std::size_t MostUnconfirmed = 20000;
const qint64 NanosecondsInSecond = 1000000000;
const char FieldEnd = '\001'; // as in the log of a line

bool isOrder(const Message& message)
{
    return message.type == "D" || message.type == "AB";
}

/// "I do not know that order": it never left.
Message denialOf(const Message& question)
{
    Message answer;
    answer.type = "8";
    answer.put(11, question.text(11));
    answer.put(37, "NONE");
    answer.put(150, "I");
    answer.put(39, "8");
    answer.put(790, question.text(790));
    return answer;
}

Message rejectOf(const Message& message, int number)
{
    Message reject;
    reject.type = "3";
    reject.put(45, std::to_string(number));
    reject.put(372, message.type);
    return reject;
}

/// The file of an order, of a question about it.
QString orderNameOf(const Message& question)
{
    Message order;
    order.put(11, question.text(11));
    return sheetName(order);
}

} // namespace

FolderEngine::FolderEngine(const FolderOptions& options, SessionListener& listener)
    : mOptions(options), mListener(listener), mFolder(options.path, options.onStep)
{
}

FolderEngine::~FolderEngine()
{
    stop();
}

std::string FolderEngine::session() const
{
    return "FILES:" + mOptions.path.toStdString();
}

std::string FolderEngine::start()
{
    const Outcome<void> opened = mFolder.open();
    if (opened.ok()) {
        mThread = std::thread([this] { run(); });
    }
    return opened.error.toStdString();
}

void FolderEngine::stop()
{
    if (!mThread.joinable()) {
        return;
    }
    {
        const std::lock_guard<std::mutex> lock(mMutex);
        mEnds = true;
    }
    mWake.notify_all();
    mThread.join();
    const std::lock_guard<std::mutex> lock(mMutex);
    if (mIsLoggedOn) {
        mIsLoggedOn = false;
        tell(SessionNews::State::LoggedOut, QString());
        tell(SessionNews::State::Disconnected, QString());
    }
}

void FolderEngine::run()
{
    std::unique_lock<std::mutex> lock(mMutex);
    while (!mEnds) {
        round();
        mWake.wait_for(lock, PauseBetweenLooks, [this] { return mEnds; });
    }
}

void FolderEngine::round()
{
    if (mIsLoggedOn && !mFolder.isReachable()) {
        mFailure = Words::tr("文件夹无法访问");
    }
    if (!mFailure.isEmpty()) {
        tell(SessionNews::State::Disconnected, mFailure);
        mIsLoggedOn = false;
        mFailure.clear();
        mRetryAt = Clock::now() + mOptions.pause;
    }
    connectAgain();
    if (mIsLoggedOn) {
        scan();
    }
}

void FolderEngine::connectAgain()
{
    if (!mIsLoggedOn && Clock::now() >= mRetryAt && mFolder.isReachable()) {
        mIsLoggedOn = true;
        tell(SessionNews::State::Connected, QString());
        tell(SessionNews::State::LoggedOn, QString());
    }
}

void FolderEngine::tell(SessionNews::State state, const QString& text)
{
    SessionNews news;
    news.state = state;
    news.session = session();
    news.text = text.toStdString();
    mListener.onSession(news);
}

void FolderEngine::drop(const std::string&)
{
    const std::lock_guard<std::mutex> lock(mMutex);
    mFailure = Words::tr("中断");
}

int FolderEngine::send(const std::string&, const Message& message)
{
    const std::lock_guard<std::mutex> lock(mMutex);
    const QString name = sheetName(message);
    if (!mIsLoggedOn || !mFailure.isEmpty() || name.isEmpty()) {
        return 0;
    }
    const int number = ++mSent;
    if (message.type == "H") {
        return ask(message, name, number);
    }
    const QByteArray sheet = sheetOf(message);
    mListener.onTraffic(session(), true, lineOf(message, FieldEnd));
    const Outcome<void> placed =
        isOrder(message) ? mFolder.placeOrder(name, sheet) : mFolder.place(name, sheet);
    mFailure = placed.error;
    return placed.ok() ? number : 0;
}

int FolderEngine::ask(const Message& question, const QString& name, int number)
{
    if (mFolder.isHeldBack(orderNameOf(question))) {
        deliver(denialOf(question));
    } else if (!mOptions.asksCounterparty) {
        deliver(rejectOf(question, number));
    } else {
        mListener.onTraffic(session(), true, lineOf(question, FieldEnd));
        mFailure = mFolder.place(name, sheetOf(question)).error;
    }
    return mFailure.isEmpty() ? number : 0;
}

void FolderEngine::deliver(const Message& message, const QString& file)
{
    mUnconfirmed.push_back(file);
    if (!file.isEmpty()) {
        mListener.onTraffic(session(), false, lineOf(message, FieldEnd));
    }
    mListener.onMessage(session(), message);
}

void FolderEngine::confirm(const std::string&, int count)
{
    const std::lock_guard<std::mutex> lock(mMutex);
    for (int i = 0; i < count && !mUnconfirmed.empty(); ++i) {
        const auto reading = mReadings.find(mUnconfirmed.front());
        if (reading != mReadings.end() && reading->second.unconfirmed > 0) {
            --reading->second.unconfirmed;
        }
        mUnconfirmed.pop_front();
    }
    if (count > 0) {
        mFolder.step("confirmed");
    }
}

void FolderEngine::scan()
{
    const QFileInfoList files = mFolder.answers(MostFilesInALook);
    std::map<QString, Reading> followed;
    for (const QFileInfo& file : files) {
        const auto known = mReadings.find(file.fileName());
        followed[file.fileName()] = known == mReadings.end() ? Reading() : known->second;
    }
    mReadings.swap(followed);
    for (const QFileInfo& file : files) {
        if (mUnconfirmed.size() < MostUnconfirmed) {
            follow(file);
        }
    }
}

bool FolderEngine::isSame(const Stamp& one, const Stamp& other)
{
    return one.inode == other.inode && one.size == other.size && one.changedAt == other.changedAt;
}

FolderEngine::Stamp FolderEngine::stampOf(const QString& path)
{
    struct stat state;
    if (::stat(QFile::encodeName(path).constData(), &state) != 0) {
        return {};
    }
    return {state.st_ino, state.st_size, state.st_mtim.tv_sec * NanosecondsInSecond + state.st_mtim.tv_nsec};
}

void FolderEngine::follow(const QFileInfo& file)
{
    Reading& reading = mReadings[file.fileName()];
    const Stamp stamp = stampOf(file.filePath());
    if (!isSame(stamp, reading.stamp)) {
        reading.stamp = stamp;
        reading.since = Clock::now();
        read(file.fileName(), reading);
    } else if (reading.unconfirmed == 0 && !reading.isStuck &&
               Clock::now() - reading.since >= mOptions.quiet) {
        finish(file.fileName(), reading);
    }
}

void FolderEngine::read(const QString& name, Reading& reading)
{
    const Outcome<QByteArray> bytes = mFolder.read(name, MostAnswerBytes + 1);
    AnswerSheet sheet = AnswerSheet::read(bytes.value);
    sheet.fault = bytes.ok() ? sheet.fault : bytes.error;
    reading.isStuck = false;
    reading.isRefused = !sheet.fault.isEmpty();
    reading.isWhole = sheet.isWhole;
    if (reading.isRefused) {
        ++reading.unconfirmed;
        deliver(unreadable(Words::tr("%1：%2").arg(name, sheet.fault)), name);
    } else {
        handOn(name, reading, sheet);
    }
}

/// Of a file that has grown, what is new.
void FolderEngine::handOn(const QString& name, Reading& reading, const AnswerSheet& sheet)
{
    const int known = sheet.rows.mid(0, reading.rows.size()) == reading.rows ? reading.rows.size() : 0;
    for (int i = known; i < sheet.rows.size(); ++i) {
        const Message& answer = sheet.answers.at(static_cast<std::size_t>(i));
        ++reading.unconfirmed;
        deliver(answer.type.empty()
                    ? unreadable(Words::tr("%1：%2").arg(name, QString::fromStdString(answer.text(58))))
                    : answer,
                name);
    }
    reading.rows = sheet.rows;
    mFolder.step("handed on");
}

/// Nobody writes it any more, it seems.
void FolderEngine::finish(const QString& name, Reading& reading)
{
    if (!reading.isRefused && !reading.isWhole) {
        reading.isRefused = true;
        ++reading.unconfirmed;
        deliver(unreadable(Words::tr("%1：没有写完，最后一行未换行或引号未闭合").arg(name)), name);
        return;
    }
    const Outcome<void> moved = reading.isRefused ? mFolder.putIntoRefused(name) : mFolder.putIntoRead(name);
    reading.isStuck = !moved.ok();
}

} // namespace gateway
