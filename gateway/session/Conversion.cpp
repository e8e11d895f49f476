#include "gateway/session/Conversion.h"

#include <quickfix/Group.h>

namespace gateway {

namespace {

const char Separator = '\001';

Fields fieldsOf(const FIX::FieldMap& map)
{
    Fields fields;
    for (const FIX::FieldBase& field : map) {
        fields.push_back({field.getTag(), field.getString()});
    }
    return fields;
}

void addGroup(const Group& group, FIX::Message& target)
{
    for (const Fields& entry : group.entries) {
        std::vector<int> order;
        for (const Field& field : entry) {
            order.push_back(field.tag);
        }
        order.push_back(0);
        FIX::Group one(group.countTag, order.front(), order.data());
        for (const Field& field : entry) {
            one.setField(field.tag, field.value);
        }
        target.addGroup(one);
    }
}

/// RawData, Password, NewPassword and their encrypted twins.
bool isSecret(const std::string& tag)
{
    return tag == "554" || tag == "925" || tag == "96" || tag == "1402" || tag == "1404";
}

/// The body as it was put together, its groups behind it. By itself the engine would sort the fields.
FIX::message_order orderOf(const Message& message)
{
    std::vector<int> tags;
    for (const Field& field : message.body) {
        tags.push_back(field.tag);
    }
    for (const Group& group : message.groups) {
        tags.push_back(group.countTag);
    }
    tags.push_back(0);
    return FIX::message_order(tags.data());
}

} // namespace

FIX::Message toEngine(const Message& message)
{
    FIX::Message result(FIX::message_order(FIX::message_order::header),
                        FIX::message_order(FIX::message_order::trailer), orderOf(message));
    result.getHeader().setField(FIX::MsgType(message.type));
    for (const Field& field : message.header) {
        result.getHeader().setField(field.tag, field.value);
    }
    for (const Field& field : message.body) {
        if (FIX::Message::isHeaderField(field.tag)) {
            result.getHeader().setField(field.tag, field.value);
        } else {
            result.setField(field.tag, field.value);
        }
    }
    for (const Group& group : message.groups) {
        addGroup(group, result);
    }
    return result;
}

Message fromEngine(const FIX::Message& message)
{
    Message result;
    result.header = fieldsOf(message.getHeader());
    result.body = fieldsOf(message);
    const std::string* type = findField(result.header, 35);
    result.type = type == nullptr ? std::string() : *type;
    for (auto it = message.g_begin(); it != message.g_end(); ++it) {
        Group group;
        group.countTag = it->first;
        for (const FIX::FieldMap* entry : it->second) {
            group.entries.push_back(fieldsOf(*entry));
        }
        result.groups.push_back(group);
    }
    return result;
}

std::string masked(const std::string& text)
{
    std::string result;
    std::size_t begin = 0;
    while (begin < text.size()) {
        const std::size_t end = std::min(text.find(Separator, begin), text.size());
        const std::size_t equals = text.find('=', begin);
        const bool hasValue = equals < end;
        if (hasValue && isSecret(text.substr(begin, equals - begin))) {
            result += text.substr(begin, equals - begin) + "=***";
        } else {
            result += text.substr(begin, end - begin);
        }
        result += end < text.size() ? std::string(1, Separator) : std::string();
        begin = end + 1;
    }
    return result;
}

} // namespace gateway
