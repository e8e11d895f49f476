#include "tests/gateway/Wire.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <set>

namespace wire {

namespace {

const char Separator = '\001';

}

Fields parse(const std::string& message)
{
    Fields fields;
    std::size_t begin = 0;
    while (begin < message.size()) {
        const std::size_t end = std::min(message.find(Separator, begin), message.size());
        const std::size_t equals = message.find('=', begin);
        if (equals < end) {
            fields.emplace_back(std::atoi(message.substr(begin, equals - begin).c_str()),
                                message.substr(equals + 1, end - equals - 1));
        }
        begin = end + 1;
    }
    return fields;
}

std::string get(const Fields& fields, int tag)
{
    const auto found =
        std::find_if(fields.begin(), fields.end(), [tag](const auto& field) { return field.first == tag; });
    return found == fields.end() ? std::string() : found->second;
}

bool has(const Fields& fields, int tag)
{
    return std::any_of(fields.begin(), fields.end(), [tag](const auto& field) { return field.first == tag; });
}

std::string takeMessage(std::string& stream)
{
    const std::size_t length = stream.find("\0019=");
    const std::size_t body = length == std::string::npos ? length : stream.find(Separator, length + 1);
    if (body == std::string::npos) {
        return std::string();
    }
    const std::size_t end = body + 1 + std::strtoul(stream.c_str() + length + 3, nullptr, 10) + 7;
    if (stream.size() < end) {
        return std::string();
    }
    const std::string message = stream.substr(0, end);
    stream.erase(0, end);
    return message;
}

std::string frame(const std::string& beginString, const Fields& body)
{
    std::string text;
    for (const auto& field : body) {
        text += std::to_string(field.first) + '=' + field.second + Separator;
    }
    std::string message =
        "8=" + beginString + Separator + "9=" + std::to_string(text.size()) + Separator + text;
    unsigned int sum = 0;
    for (const char one : message) {
        sum += static_cast<unsigned char>(one);
    }
    char trailer[16];
    std::snprintf(trailer, sizeof trailer, "10=%03u%c", sum % 256, Separator);
    return message + trailer;
}

std::string shown(const std::string& message)
{
    std::string text = message;
    std::replace(text.begin(), text.end(), Separator, '|');
    return text;
}

std::string essence(const std::string& message)
{
    static const std::set<int> Changing = {8, 9, 34, 49, 52, 56, 60, 10};
    std::string text;
    for (const auto& field : parse(message)) {
        if (Changing.count(field.first) == 0) {
            text += (text.empty() ? "" : "|") + std::to_string(field.first) + '=' + field.second;
        }
    }
    return text;
}

std::string utcNow()
{
    const auto now = std::chrono::system_clock::now().time_since_epoch();
    const auto milliseconds = std::chrono::duration_cast<std::chrono::milliseconds>(now).count();
    const std::time_t seconds = static_cast<std::time_t>(milliseconds / 1000);
    std::tm parts = {};
    gmtime_r(&seconds, &parts);
    char text[32];
    const std::size_t length = std::strftime(text, sizeof text, "%Y%m%d-%H:%M:%S", &parts);
    std::snprintf(text + length, sizeof text - length, ".%03d", static_cast<int>(milliseconds % 1000));
    return text;
}

} // namespace wire
