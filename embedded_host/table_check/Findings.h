#pragma once

#include "embedded_host/table_check/TableLint.h"

#include <QHash>

namespace table_lint {

/// What was found so far. For the check's own files.
class Findings {
public:
    explicit Findings(const table::Table& table) : mTable(table) {}

    void ofFile(const QString& rule, const QString& text, const QStringList& suggestions = {});
    void ofRow(const QString& rule, int row, const QString& text = {}, const QStringList& suggestions = {});
    void ofCell(const QString& rule, int row, int column, const QString& text,
                const QStringList& suggestions = {});

    QList<Finding> take() { return std::move(mFindings); }

private:
    bool hasRoom(const QString& rule);

    const table::Table& mTable;
    QHash<QString, int> mCounts;
    QList<Finding> mFindings;
};

} // namespace table_lint
