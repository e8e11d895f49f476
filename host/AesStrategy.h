#pragma once

#include <QString>

#include <utility>

/// One server-side execution strategy of the catalogue: a copyable value.
class AesStrategy {
public:
    AesStrategy() = default;
    AesStrategy(QString name, QString alias, QString paramFormats, QString globalType)
        : mName(std::move(name)), mAlias(std::move(alias)), mParamFormats(std::move(paramFormats)),
          mGlobalType(std::move(globalType))
    {
    }

    /// The code that identifies the strategy everywhere, for example "AITWAP". Empty for an unknown strategy.
    QString name() const { return mName; }
    /// The name that is shown.
    QString alias() const { return mAlias; }
    /// The parameter format document: JSON text, an array of parameter entries (see docs/import-table.md).
    QString paramFormats() const { return mParamFormats; }
    /// The part of the catalogue that it belongs to, for example Algo_Values::AlgoGlobalType::algo.
    QString globalType() const { return mGlobalType; }

private:
    QString mName;
    QString mAlias;
    QString mParamFormats;
    QString mGlobalType;
};
