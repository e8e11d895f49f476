#pragma once

#include <QByteArray>

/// Documents of the tests.
namespace document {

/// Strategies around these elements; `attributes` are further ones of the root.
inline QByteArray of(const QByteArray& content, const QByteArray& attributes = "tag957Support=\"false\"")
{
    return R"(<?xml version="1.0"?>
<Strategies xmlns="http://www.fixprotocol.org/FIXatdl-1-1/Core"
 xmlns:val="http://www.fixprotocol.org/FIXatdl-1-1/Validation"
 xmlns:lay="http://www.fixprotocol.org/FIXatdl-1-1/Layout" xmlns:flow="http://www.fixprotocol.org/FIXatdl-1-1/Flow"
 xmlns:xsi="http://www.w3.org/2001/XMLSchema-instance" strategyIdentifierTag="847" )" +
           attributes + ">" + content + "</Strategies>";
}

/// One strategy S around these elements.
inline QByteArray ofStrategy(const QByteArray& content,
                             const QByteArray& attributes = "tag957Support=\"false\"")
{
    return of(R"(<Strategy name="S" uiRep="策略" wireValue="1">)" + content + "</Strategy>", attributes);
}

} // namespace document
