#pragma once

#include "desk/check/Problem.h"

#include <QWidget>

class QComboBox;

/// Which of the problems are shown: by severity and by rule, each with how many there are.
class ProblemFacets : public QWidget {
    Q_OBJECT

public:
    explicit ProblemFacets(QWidget* parent = nullptr);

    /// Counts them. What is chosen stays chosen where there still is such a problem.
    void count(const Problems& problems);
    /// Shows everything again.
    void clear();
    bool accepts(const Problem& problem) const;
    bool isOpen() const; ///< everything is shown

public slots:
    /// F7: errors alone, or everything.
    void toggleErrors();

signals:
    void changed();

private:
    QComboBox* mSeverities;
    QComboBox* mRules;
};
