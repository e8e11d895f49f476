#pragma once

#include <QDialog>
#include <QMap>
#include <QString>

class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;

/// "All 激进 of this column become aggressive": asks for both texts.
class ReplaceDialog : public QDialog {
    Q_OBJECT

public:
    /// `values`: the texts that stand in the column, the rows counted; `current` is chosen first.
    ReplaceDialog(const QString& title, const QMap<QString, int>& values, const QString& current,
                  QWidget* parent = nullptr);

    QString before() const;
    QString after() const;

private:
    void showCount();

    QMap<QString, int> mValues;
    QComboBox* mBefore;
    QLineEdit* mAfter;
    QLabel* mCount;
    QPushButton* mReplace;
};
