#include "gateway/profile/ProfileTags.h"

#include <algorithm>
#include <array>

namespace gateway {

namespace {

template <std::size_t Count> bool holds(const std::array<int, Count>& tags, int tag)
{
    return std::find(tags.begin(), tags.end(), tag) != tags.end();
}

} // namespace

bool isReservedTag(int tag)
{
    // The session's own: BeginString, BodyLength, CheckSum, MsgSeqNum, MsgType, PossDupFlag, the two parties,
    // SendingTime, PossResend, OrigSendingTime, ApplVerID.
    static constexpr std::array<int, 13> OfTheSession = {8,  9,  10, 34,  35,  43,  49,
                                                         52, 56, 97, 122, 369, 1128};
    static constexpr std::array<int, 12> OfTheOrder = {1, 11, 21, 38, 40, 41, 44, 55, 59, 60, 152, 207};
    static constexpr std::array<int, 12> OfTheGroups = {555, 564, 566, 600, 616, 624,
                                                        654, 687, 957, 958, 959, 960};
    return holds(OfTheSession, tag) || holds(OfTheOrder, tag) || holds(OfTheGroups, tag);
}

bool isReplaceableTag(int tag)
{
    return tag == 21 || tag == 59;
}

} // namespace gateway
