#include "gateway/session/SequenceStore.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <quickfix/FieldConvertors.h>

#include <algorithm>
#include <cstdio>

namespace gateway {

namespace {

/// "0000000012 0000000034 20261123-01:35:00\n": of one length, so that a write replaces it whole.
const int RecordLength = 40;

std::string fileNameOf(const FIX::SessionID& session)
{
    std::string name = session.toString();
    std::replace_if(
        name.begin(), name.end(), [](char one) { return one == ':' || one == '>' || one == '/'; }, '-');
    return name + ".sequence";
}

/// Makes a folder and those above it; what fails shows when the file is opened.
void makeFolder(const std::string& folder)
{
    for (std::size_t end = folder.find('/', 1); end != std::string::npos; end = folder.find('/', end + 1)) {
        ::mkdir(folder.substr(0, end).c_str(), 0700);
    }
    ::mkdir(folder.c_str(), 0700);
}

} // namespace

SequenceStore::SequenceStore(const std::string& path)
{
    if (path.empty()) {
        return;
    }
    mFile = ::open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
    if (mFile < 0) {
        throw FIX::ConfigError("cannot write " + path);
    }
    load();
}

SequenceStore::~SequenceStore()
{
    if (mFile >= 0) {
        ::close(mFile);
    }
}

void SequenceStore::load()
{
    char record[RecordLength + 1] = {};
    const ssize_t length = ::pread(mFile, record, RecordLength, 0);
    char created[18] = {};
    if (length == RecordLength && std::sscanf(record, "%10d %10d %17s", &mSender, &mTarget, created) == 3) {
        mCreated = FIX::UtcTimeStampConvertor::convert(std::string(created));
        return;
    }
    mSender = 1;
    mTarget = 1;
    mCreated.setCurrent();
    save();
}

int SequenceStore::targetToKeep() const
{
    const auto held = std::find_if(mHeld.begin(), mHeld.end(), [](int number) { return number != 0; });
    return held == mHeld.end() ? mTarget : std::min(mTarget, *held);
}

void SequenceStore::save()
{
    if (mFile < 0) {
        return;
    }
    char record[RecordLength + 1];
    const std::string created = FIX::UtcTimeStampConvertor::convert(mCreated);
    std::snprintf(record, sizeof record, "%010d %010d %.17s\n", mSender, targetToKeep(), created.c_str());
    if (::pwrite(mFile, record, RecordLength, 0) != RecordLength) {
        throw FIX::IOException("cannot write the sequence numbers");
    }
}

void SequenceStore::hold(int number)
{
    const std::lock_guard<std::mutex> lock(mMutex);
    mHeld.push_back(number);
}

void SequenceStore::confirm(int count)
{
    const std::lock_guard<std::mutex> lock(mMutex);
    const int before = targetToKeep();
    mHeld.erase(mHeld.begin(), mHeld.begin() + std::min<std::ptrdiff_t>(count, mHeld.end() - mHeld.begin()));
    if (targetToKeep() != before) {
        save();
    }
}

bool SequenceStore::set(int, const std::string&) throw(FIX::IOException)
{
    return true;
}

void SequenceStore::get(int, int, std::vector<std::string>& messages) const throw(FIX::IOException)
{
    messages.clear();
}

int SequenceStore::getNextSenderMsgSeqNum() const throw(FIX::IOException)
{
    const std::lock_guard<std::mutex> lock(mMutex);
    return mSender;
}

int SequenceStore::getNextTargetMsgSeqNum() const throw(FIX::IOException)
{
    const std::lock_guard<std::mutex> lock(mMutex);
    return mTarget;
}

void SequenceStore::setNextSenderMsgSeqNum(int number) throw(FIX::IOException)
{
    const std::lock_guard<std::mutex> lock(mMutex);
    mSender = number;
    save();
}

void SequenceStore::setNextTargetMsgSeqNum(int number) throw(FIX::IOException)
{
    const std::lock_guard<std::mutex> lock(mMutex);
    mTarget = number;
    save();
}

void SequenceStore::incrNextSenderMsgSeqNum() throw(FIX::IOException)
{
    const std::lock_guard<std::mutex> lock(mMutex);
    ++mSender;
    save();
}

void SequenceStore::incrNextTargetMsgSeqNum() throw(FIX::IOException)
{
    const std::lock_guard<std::mutex> lock(mMutex);
    const int before = targetToKeep();
    ++mTarget;
    if (targetToKeep() != before) {
        save();
    }
}

FIX::UtcTimeStamp SequenceStore::getCreationTime() const throw(FIX::IOException)
{
    const std::lock_guard<std::mutex> lock(mMutex);
    return mCreated;
}

void SequenceStore::reset() throw(FIX::IOException)
{
    const std::lock_guard<std::mutex> lock(mMutex);
    mSender = 1;
    mTarget = 1;
    std::fill(mHeld.begin(), mHeld.end(), 0);
    mCreated.setCurrent();
    save();
}

/// A hot standby would read what its twin wrote; there is none.
void SequenceStore::refresh() throw(FIX::IOException) {}

SequenceStoreFactory::SequenceStoreFactory(const std::string& folder) : mFolder(folder)
{
    if (!folder.empty()) {
        makeFolder(folder);
    }
}

FIX::MessageStore* SequenceStoreFactory::create(const FIX::SessionID& session)
{
    const std::lock_guard<std::mutex> lock(mMutex);
    const std::string path = mFolder.empty() ? mFolder : mFolder + '/' + fileNameOf(session);
    mStores[session] = new SequenceStore(path);
    return mStores[session];
}

void SequenceStoreFactory::destroy(FIX::MessageStore* store)
{
    const std::lock_guard<std::mutex> lock(mMutex);
    for (auto it = mStores.begin(); it != mStores.end(); ++it) {
        if (it->second == store) {
            mStores.erase(it);
            break;
        }
    }
    delete store;
}

SequenceStore* SequenceStoreFactory::find(const FIX::SessionID& session)
{
    const std::lock_guard<std::mutex> lock(mMutex);
    const auto found = mStores.find(session);
    return found == mStores.end() ? nullptr : found->second;
}

} // namespace gateway
