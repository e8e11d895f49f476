#pragma once

#include <QList>
#include <QString>

namespace atdl {

/// Something of the document that could not be carried over.
struct Loss {
    QString strategy; ///< name of the strategy; empty: of the document
    QString element;  ///< "Parameter", "StrategyEdit", …
    QString name;     ///< the element's own name, id or message; with an attribute "MaxPct/@precision"
    QString reason;   ///< a Chinese sentence
};

using Losses = QList<Loss>;

/// Writes losses of one strategy down.
class LossBook {
public:
    LossBook(const QString& strategy, Losses& losses) : mStrategy(strategy), mLosses(losses) {}

    void add(const QString& element, const QString& name, const QString& reason)
    {
        mLosses.append({mStrategy, element, name, reason});
    }

private:
    QString mStrategy;
    Losses& mLosses;
};

} // namespace atdl
