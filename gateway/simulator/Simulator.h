#pragma once

#include <QHash>
#include <QIODevice>
#include <QString>

#include <functional>
#include <optional>

namespace gateway {

struct SimulatorOptions {
    QString settingsFile; ///< an acceptor's
    QString dictionaryFolder;
    double pace = 1.0;
    QHash<QString, qint64> quotes; ///< by a security's code, in ten-thousandths
    std::optional<quint32> faults; ///< the seed of lost answers and broken lines; absent: none
    std::function<bool()> isAskedToEnd;
};

/// Until it is asked to end. Answers the exit status: 0 ended as told, 2 a configuration that cannot be used.
/// What it does with orders, a JSON line each on `out`.
int simulate(const SimulatorOptions& options, QIODevice& out, QIODevice& err);

} // namespace gateway
