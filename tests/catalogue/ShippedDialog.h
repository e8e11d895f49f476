#pragma once

#include "embedded_host/reference_data/ReferenceFolder.h"
#include "tests/support/DialogFixture.h"

namespace shipped {

/// A path within the project, such as "samples/AITWAP.csv".
inline QString path(const QString& inProject)
{
    return QStringLiteral(ALGO_PROJECT_DIR) + QLatin1Char('/') + inProject;
}

/// The reference data that ships; the test fails where it cannot be read.
inline ReferenceTables tables()
{
    QString error;
    const std::optional<ReferenceTables> read =
        readReferenceFolder(path(QStringLiteral("reference_data")), error);
    EXPECT_TRUE(read.has_value()) << qPrintable(error);
    return read.value_or(ReferenceTables());
}

} // namespace shipped

/// The real dialog on the reference data that ships.
class ShippedDialog : public DialogFixture {
protected:
    ShippedDialog() { tables = shipped::tables(); }
};
