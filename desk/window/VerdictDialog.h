#pragma once

#include "desk/verdict/Judgement.h"

#include <QDialog>
#include <QList>

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QVBoxLayout;

/// What is to be created, before every creation, and what is known against it: refusals that nobody can
/// override, questions that are acknowledged rule by rule, what is told, and above a threshold the gross
/// amount to be typed once more. Where batches before hold the same, what is to become of that is chosen
/// here; each choice has a judgement of its own.
class VerdictDialog : public QDialog {
    Q_OBJECT

public:
    /// `others`: batches that hold the same, or that the table was compared with, newest first.
    explicit VerdictDialog(const verdict::Judgement& judgement, const QList<qint64>& others = {},
                           QWidget* parent = nullptr);

    /// The answer to choiceWanted(): what holds by the choice, or why it cannot be; then the one before
    /// holds on.
    void showJudgement(const verdict::Judgement& judgement);
    void refuseChoice(const QString& reason);

    /// What the user agreed to; meaningful after the dialog was accepted.
    verdict::Acceptance acceptance() const;

signals:
    void choiceWanted(const verdict::DuplicateChoice& choice);
    /// The user wants to see a row of the table, from 1.
    void rowWanted(int row);

private:
    void addChoices(QVBoxLayout* column, const QList<qint64>& others);
    void build();
    bool isForbidden() const { return mJudgement.refuses() || mJudgement.isEmpty(); }
    void addSummary(QVBoxLayout* column);
    void addText(QVBoxLayout* column, const QString& title, const QStringList& lines, const QString& role);
    void addQuestions(QVBoxLayout* column);
    QLabel* makeRows(const verdict::Line& line);
    void addAmount(QVBoxLayout* column);
    void addButtons(QVBoxLayout* column);
    void showWhetherAllowed();

    verdict::Judgement mJudgement;
    QList<verdict::DuplicateChoice> mChoices; ///< in the order of the box
    QComboBox* mChoice = nullptr;             ///< null where nothing holds the same
    QLabel* mChoiceFault = nullptr;
    QWidget* mBody = nullptr;     ///< made anew for each judgement
    QList<QCheckBox*> mQuestions; ///< one a rule, which is its property "rule"
    QLineEdit* mAmount = nullptr;
    QPushButton* mCreate = nullptr; ///< null where something refuses
    QPushButton* mCancel = nullptr;
};
