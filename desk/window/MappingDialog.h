#pragma once

#include "desk/mapping/Suggestion.h"

#include <QDialog>

#include <functional>
#include <optional>

class QCheckBox;
class QComboBox;
class QGridLayout;
class QLabel;
class QPushButton;
class QScrollArea;
class QSpinBox;
class QTableWidget;

/// The step in which a person tells a stranger's table in the strategy's words: sheet and header line, which
/// column is which, which value is which, what holds of all rows; below it the first ten rows as the import
/// will see them, and what stays out.
///
///     MappingDialog dialog(strategy, file.table, surroundings, parent);
///     dialog.setSheets(names, readSheet);
///     dialog.start(remembered);                    // or start({}) with what is suggested
///     if (dialog.exec() == QDialog::Accepted) { … dialog.mapping(), dialog.isToBeRemembered() … }
class MappingDialog : public QDialog {
    Q_OBJECT

public:
    /// The table as it was read.
    MappingDialog(const strategy::Strategy& strategy, const table::Table& table,
                  const mapping::Surroundings& surroundings, QWidget* parent = nullptr);

    /// Reads another sheet; an unreadable one answers its error.
    using ReadSheet = std::function<table::Table(const QString& sheet)>;
    void setSheets(const QStringList& names, const ReadSheet& read);
    /// Begins with this mapping, else with what is suggested.
    void start(const std::optional<mapping::Mapping>& mapping);

    const mapping::Mapping& mapping() const { return mMapping; }
    /// Of the sheet chosen.
    const table::Table& table() const { return mTable; }
    bool isToBeRemembered() const;
    /// The user wants the file imported as it stands, without a mapping.
    bool isPlainWanted() const { return mIsPlainWanted; }

private:
    void build();
    QWidget* makePlace();
    QWidget* makeLists();
    void takeSheet(const QString& name);
    void takeLine(int line);
    void suggestAgain(int headerRow);
    void showColumns();
    void showValues();
    void showOutcome();
    void showPreview();
    void showGaps();
    void setTarget(int column, const QString& title);
    void addColumnRow(QGridLayout* grid, int column);
    void addValueRow(QGridLayout* grid, const QString& title, const QString& text);
    void addConstantRow(QGridLayout* grid, const strategy::Column& column);
    void change(const std::function<void()>& act);
    mapping::Column* columnFrom(int column);
    QStringList header() const;

    const strategy::Strategy mStrategy;
    const mapping::Surroundings mSurroundings;
    table::Table mTable;
    ReadSheet mReadSheet;
    mapping::Mapping mMapping;
    QComboBox* mSheets;
    QSpinBox* mLine;
    QScrollArea* mColumns;
    QScrollArea* mValues;
    QTableWidget* mPreview;
    QLabel* mState;
    QCheckBox* mRemember;
    QPushButton* mAccept;
    bool mIsShowing = false;
    bool mIsPlainWanted = false;
};
