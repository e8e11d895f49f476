#pragma once

#include <quickfix/MessageStore.h>

#include <deque>
#include <map>
#include <mutex>
#include <string>

namespace gateway {

/// The sequence numbers of an initiator's session, in a file that outlives a killed process.
///
/// It keeps no messages: an order is never sent again by the session, so a resend request finds nothing and
/// is answered with a gap fill. And it lets the number expected next on disk only follow what the program has
/// written down: what it had heard but not kept, the counterparty is asked for again.
class SequenceStore : public FIX::MessageStore {
public:
    /// `path`: the file; empty: memory alone.
    explicit SequenceStore(const std::string& path);
    ~SequenceStore() override;
    SequenceStore(const SequenceStore&) = delete;
    SequenceStore& operator=(const SequenceStore&) = delete;

    /// A message was handed to the program.
    void hold(int number);
    /// The first `count` of those held are written down.
    void confirm(int count);

    bool set(int number, const std::string& message) throw(FIX::IOException) override;
    void get(int begin, int end, std::vector<std::string>& messages) const throw(FIX::IOException) override;
    int getNextSenderMsgSeqNum() const throw(FIX::IOException) override;
    int getNextTargetMsgSeqNum() const throw(FIX::IOException) override;
    void setNextSenderMsgSeqNum(int number) throw(FIX::IOException) override;
    void setNextTargetMsgSeqNum(int number) throw(FIX::IOException) override;
    void incrNextSenderMsgSeqNum() throw(FIX::IOException) override;
    void incrNextTargetMsgSeqNum() throw(FIX::IOException) override;
    FIX::UtcTimeStamp getCreationTime() const throw(FIX::IOException) override;
    void reset() throw(FIX::IOException) override;
    void refresh() throw(FIX::IOException) override;

private:
    void load();
    void save();
    int targetToKeep() const;

    mutable std::mutex mMutex;
    int mFile = -1;
    int mSender = 1;
    int mTarget = 1;
    FIX::UtcTimeStamp mCreated;
    std::deque<int> mHeld; ///< numbers of messages that are not written down yet; 0: from before a reset
};

/// One store a session, in a folder or in memory.
class SequenceStoreFactory : public FIX::MessageStoreFactory {
public:
    explicit SequenceStoreFactory(const std::string& folder);

    FIX::MessageStore* create(const FIX::SessionID& session) override;
    void destroy(FIX::MessageStore* store) override;

    /// Null for a session that has no store (yet).
    SequenceStore* find(const FIX::SessionID& session);

private:
    std::string mFolder;
    std::mutex mMutex;
    std::map<FIX::SessionID, SequenceStore*> mStores;
};

} // namespace gateway
