#pragma once

#include "desk/check/Problem.h"
#include "desk/models/RecordModel.h"

/// What is wrong with the imported file or the batch, one problem a row. Role: StateRole, a table::Severity.
class ProblemsModel : public RecordModel<Problem> {
public:
    /// Row is that of the dialog's table, Cell the place on the sheet in A1 notation.
    enum Column { Severity, Line, Cell, Row, Title, Raw, Reason, Suggestions, Rule, Source };

    explicit ProblemsModel(QObject* parent = nullptr);

    /// What people call a severity and who found a problem.
    static QString nameOf(table::Severity severity);
    static QString nameOf(Problem::Source source);
    /// The sign that stands beside a colour.
    static QString signOf(table::Severity severity);
    /// The sentence of a rule without what it is filled with.
    static QString titleOfRule(const QString& rule);

protected:
    ListModel::Cell cellOf(const Problem& problem, int column) const override;
    QVariant roleOf(const Problem& problem, int role) const override;
};
