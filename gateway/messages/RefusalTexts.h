#pragma once

#include "words/Words.h"

#include <QString>

/// Why an instance cannot go out, each sentence once. They are the `reason` that a trader reads.
namespace gateway::texts {

inline QString unknownStrategy(const QString& strategy)
{
    return Words::tr("网关配置中没有算法“%1”").arg(strategy);
}

inline QString unknownExchange(const QString& exchange)
{
    return Words::tr("网关配置中没有市场“%1”").arg(exchange);
}

inline QString unknownSide(const QString& side)
{
    return Words::tr("网关配置中没有交易方向“%1”").arg(side);
}

inline QString unmapped(const QString& parameter)
{
    return Words::tr("网关配置中参数“%1”既未映射也未忽略").arg(parameter);
}

inline QString unknownValue(const QString& parameter, const QString& value)
{
    return Words::tr("网关配置中参数“%1”没有取值“%2”").arg(parameter, value);
}

inline QString wrongValue(const QString& parameter, const QString& value, const QString& wanted)
{
    return Words::tr("参数“%1”的值“%2”不是%3").arg(parameter, value, wanted);
}

inline QString missing(const QString& parameter)
{
    return Words::tr("缺少“%1”").arg(parameter);
}

inline QString legsDisagree(const QString& parameter)
{
    return Words::tr("两腿的参数“%1”不一致，网关配置中没有 legTag").arg(parameter);
}

inline QString sidesDisagree(int tag)
{
    return Words::tr("两腿交易方向的字段 %1 不一致").arg(tag);
}

inline QString wrongLegCount(int count)
{
    return Words::tr("实例有 %1 个标的，网关只能发送一个或两个").arg(count);
}

inline QString twice(int tag)
{
    return Words::tr("字段 %1 被填写两次，请检查网关配置").arg(tag);
}

inline QString pairRefused(const QString& pair, const QString& reason)
{
    return Words::tr("配对编号“%1”中有实例不能发送：%2").arg(pair, reason);
}

} // namespace gateway::texts
