#include "gateway/messages/Message.h"

#include <algorithm>

namespace gateway {

const std::string* findField(const Fields& fields, int tag)
{
    const auto found =
        std::find_if(fields.begin(), fields.end(), [tag](const Field& field) { return field.tag == tag; });
    return found == fields.end() ? nullptr : &found->value;
}

const std::string* Message::find(int tag) const
{
    return findField(body, tag);
}

std::string Message::text(int tag) const
{
    const std::string* value = find(tag);
    return value == nullptr ? std::string() : *value;
}

void Message::put(int tag, const std::string& value)
{
    body.push_back({tag, value});
}

const Group* Message::group(int countTag) const
{
    const auto found = std::find_if(groups.begin(), groups.end(),
                                    [countTag](const Group& one) { return one.countTag == countTag; });
    return found == groups.end() ? nullptr : &*found;
}

} // namespace gateway
