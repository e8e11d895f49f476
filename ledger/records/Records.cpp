#include "ledger/records/Records.h"

namespace ledger {

namespace {

struct StateName {
    const char* name;
    const char16_t* shown;
};

// In the order of the enumerators.
constexpr StateName BatchStates[] = {
    {"created", u"已创建"}, {"withdrawn", u"已撤销"}, {"partly_reversed", u"部分撤销"}};
constexpr StateName InstanceStates[] = {{"created", u"未启动"},
                                        {"running", u"运行中"},
                                        {"stopped", u"已停止"},
                                        {"finished", u"已完成"},
                                        {"withdrawn", u"已撤销"}};

} // namespace

QString nameOf(BatchState state)
{
    return QString::fromLatin1(BatchStates[static_cast<int>(state)].name);
}

QString nameOf(InstanceState state)
{
    return QString::fromLatin1(InstanceStates[static_cast<int>(state)].name);
}

QString shownName(BatchState state)
{
    return QString::fromUtf16(BatchStates[static_cast<int>(state)].shown);
}

QString shownName(InstanceState state)
{
    return QString::fromUtf16(InstanceStates[static_cast<int>(state)].shown);
}

QString InstanceId::text() const
{
    return QStringLiteral("%1-%2").arg(batch).arg(row);
}

} // namespace ledger
