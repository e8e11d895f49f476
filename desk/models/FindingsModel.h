#pragma once

#include "desk/check/FileReport.h"
#include "desk/models/RecordModel.h"

/// What looks wrong in a file, one finding a row. Role: StateRole, a table::Severity.
class FindingsModel : public RecordModel<table_lint::Finding> {
public:
    enum Column { Severity, Place, Raw, Sentence, Suggestions };

    explicit FindingsModel(QObject* parent = nullptr);

    /// Of a file that cannot be read, the reason is the only finding.
    void show(const FileReport& report);

protected:
    Cell cellOf(const table_lint::Finding& finding, int column) const override;
    QVariant roleOf(const table_lint::Finding& finding, int role) const override;

private:
    QString placeOf(const table_lint::Finding& finding) const;

    QString mSheet; ///< that was read; empty for csv
    bool mIsSpreadsheet = false;
};
