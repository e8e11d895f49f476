#pragma once

#include "embedded_host/reference_data/ReferenceData.h"
#include "embedded_host/reference_data/ReferenceFolder.h"
#include "strategy/Strategy.h"

#include <gtest/gtest.h>

#include <utility>

/// The reference data that ships, read once.
inline const ReferenceData& shippedReference()
{
    static const ReferenceData data = [] {
        QString error;
        auto tables = readReferenceFolder(QStringLiteral(ALGO_PROJECT_DIR "/reference_data"), error);
        EXPECT_TRUE(tables.has_value()) << error.toStdString();
        return ReferenceData(std::move(*tables));
    }();
    return data;
}

/// Columns of a shipped strategy's table.
inline QStringList shippedTitles(const QString& code)
{
    const AesStrategy* offered = shippedReference().strategy(code);
    EXPECT_NE(nullptr, offered) << code.toStdString();
    return offered == nullptr
               ? QStringList()
               : strategy::Strategy::parse(code, offered->alias(), offered->paramFormats()).value.titles();
}
