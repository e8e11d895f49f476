#pragma once

#include <QTest>

#include <functional>

/// How long a test waits for what comes: a machine that works on ten others at once is slow, not wrong.
constexpr int PatienceMs = 60000;

/// Whether it comes to hold; events are handled meanwhile.
inline bool eventually(const std::function<bool()>& holds)
{
    return QTest::qWaitFor(holds, PatienceMs);
}
