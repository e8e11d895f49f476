#pragma once

#include "desk/verdict/Judgement.h"

#include <QDialog>
#include <QList>

class QCheckBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QVBoxLayout;

/// What is to be created, before every creation, and what is known against it: refusals that nobody can
/// override, questions that are acknowledged rule by rule, what is told, and above a threshold the gross
/// amount to be typed once more.
class VerdictDialog : public QDialog {
    Q_OBJECT

public:
    explicit VerdictDialog(const verdict::Judgement& judgement, QWidget* parent = nullptr);

    /// What the user agreed to; meaningful after the dialog was accepted.
    verdict::Acceptance acceptance() const;

signals:
    /// The user wants to see a row of the batch, from 1.
    void rowWanted(int row);

private:
    void addSummary(QVBoxLayout* column);
    void addText(QVBoxLayout* column, const QString& title, const QStringList& lines, const QString& role);
    void addQuestions(QVBoxLayout* column);
    QLabel* makeRows(const verdict::Line& line);
    void addAmount(QVBoxLayout* column);
    void addButtons(QVBoxLayout* column);
    void showWhetherAllowed();

    verdict::Judgement mJudgement;
    QList<QCheckBox*> mQuestions; ///< one a rule, which is its property "rule"
    QLineEdit* mAmount = nullptr;
    QPushButton* mCreate = nullptr; ///< null where something refuses
    QPushButton* mCancel = nullptr;
};
