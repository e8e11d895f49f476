#pragma once

#include "desk/models/RecordModel.h"
#include "embedded_host/table_reader/TableLint.h"

/// What looks wrong in a file, one finding a row. Role: StateRole, a table_lint::Severity.
class FindingsModel : public RecordModel<table_lint::Finding> {
public:
    enum Column { Severity, Place, Raw, Sentence, Suggestions };

    explicit FindingsModel(QObject* parent = nullptr);

protected:
    Cell cellOf(const table_lint::Finding& finding, int column) const override;
    QVariant roleOf(const table_lint::Finding& finding, int role) const override;
};
