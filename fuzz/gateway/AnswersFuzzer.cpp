#include "gateway/handoff/AnswerSheet.h"

#include <cstdint>
#include <cstdlib>

namespace {

void expect(bool holds)
{
    if (!holds) {
        std::abort();
    }
}

} // namespace

/// Any bytes as a file of answers, read once in the middle of being written. The first byte says where.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    if (size == 0) {
        return 0;
    }
    const QByteArray bytes(reinterpret_cast<const char*>(data + 1), static_cast<int>(size - 1));
    const gateway::AnswerSheet all = gateway::AnswerSheet::read(bytes);
    const gateway::AnswerSheet early = gateway::AnswerSheet::read(bytes.left(bytes.size() * data[0] / 255));
    expect(all.answers.size() == static_cast<std::size_t>(all.rows.size()));
    expect(all.fault.isEmpty() || all.rows.isEmpty());
    expect(!all.fault.isEmpty() || early.fault.isEmpty());
    expect(!all.fault.isEmpty() || all.rows.mid(0, early.rows.size()) == early.rows);
    for (const gateway::Message& answer : all.answers) {
        expect(answer.type == "8" || answer.type == "9" || (answer.type.empty() && answer.has(58)));
    }
    return 0;
}
