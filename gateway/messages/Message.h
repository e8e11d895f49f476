#pragma once

#include <string>
#include <vector>

/// A message as a value, without an engine: what goes out is built as one, what comes in is read as one.
/// Texts are bytes as they stand on the wire (UTF-8 where they are not ASCII). Plain C++14, so that the
/// folder that speaks to the engine can read it too.
namespace gateway {

struct Field {
    int tag = 0;
    std::string value;
};

using Fields = std::vector<Field>;

/// A repeating group without groups of its own: 957 with 958 to 960, or 555 with its legs.
struct Group {
    int countTag = 0;
    std::vector<Fields> entries; ///< the first field of an entry is the group's first
};

struct Message {
    std::string type; ///< 35: D, AB, F, H, 8, 9, …
    Fields header;    ///< beyond what a session fills in itself, such as 97=Y
    Fields body;      ///< in the order in which they were put
    std::vector<Group> groups;

    /// Null where the body has no such field.
    const std::string* find(int tag) const;
    /// Empty where the body has no such field.
    std::string text(int tag) const;
    bool has(int tag) const { return find(tag) != nullptr; }
    void put(int tag, const std::string& value);
    const Group* group(int countTag) const;
};

/// "35=D", header, body and groups, with this between fields: for people to read.
std::string lineOf(const Message& message, char separator);

/// Null where there is no such field.
const std::string* findField(const Fields& fields, int tag);

} // namespace gateway
