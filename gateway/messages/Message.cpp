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

std::string lineOf(const Message& message, char separator)
{
    std::string line = "35=" + message.type;
    const auto add = [&](const Fields& fields) {
        for (const Field& field : fields) {
            line += separator + std::to_string(field.tag) + '=' + field.value;
        }
    };
    add(message.header);
    add(message.body);
    for (const Group& group : message.groups) {
        add({{group.countTag, std::to_string(group.entries.size())}});
        for (const Fields& entry : group.entries) {
            add(entry);
        }
    }
    return line;
}

} // namespace gateway
