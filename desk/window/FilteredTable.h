#pragma once

#include "desk/models/ListModel.h"

#include <QList>
#include <QString>
#include <QWidget>

#include <functional>

class EmbeddedHost;
class ListProxy;
class QHBoxLayout;
class QLabel;
class QLayout;
class QLineEdit;
class QPushButton;
class QTableView;
class TableBehaviour;
class UserPrompts;

/// A list of the desk: filter, count, copy, export over a table that sorts by a click on a title.
class FilteredTable : public QWidget {
    Q_OBJECT

public:
    /// What the list is called, in the user's words, and what it says while it is empty.
    struct Name {
        QString shown;
        QString emptyText;
    };

    FilteredTable(ListModel* source, const Name& name, UserPrompts& prompts, QWidget* parent = nullptr);

    QTableView* view() const { return mView; }
    QLineEdit* filter() const { return mFilter; }
    /// Puts a button at the left end of those above the table.
    QPushButton* addButton(const QString& text, const QString& objectName);

    /// Draws the tints of the list in the colours of the host's skin.
    void setColoursOf(EmbeddedHost& host);
    /// Draws how far a row has come below the text of a column.
    void setProgressColumn(EmbeddedHost& host, int column);
    /// For a list of which one row at a time is dealt with.
    void setSingleSelection();
    /// What stands in place of the rows while the source has none.
    void setEmptyText(const QString& text);
    /// What stands there now; empty where rows are shown.
    QString emptyText() const;

    /// Shows of the source only the rows that a choice lets pass, beside what is typed; null: all. Asked anew
    /// with every call.
    void setChoice(const std::function<bool(int sourceRow)>& choice);
    /// Puts a row of widgets between the tools and the table.
    void addRow(QLayout* row);

    /// The rows of the source as shown, in their order.
    QList<int> shownSourceRows() const;
    /// The row of the source that has the focus; -1 for none.
    int currentRow() const;
    /// The one row of the source that is selected; -1 for none or several.
    int selectedRow() const;
    /// The rows of the source that are selected, as they are shown.
    QList<int> selectedRows() const;
    /// Selects these rows of the source and no other, as far as they are shown.
    void selectRows(const QList<int>& sourceRows);
    /// Selects and shows a row of the source; a filter that hides it is cleared.
    void setCurrentRow(int sourceRow);
    /// Title row and the rows as shown: filtered, sorted, without hidden columns; numbers without commas.
    QList<QStringList> shownRows() const;
    /// Columns as wide as their contents, within reason.
    void fitColumns();
    /// The same when the first rows come, so that what the user made of the columns stays.
    void fitColumnsOnce();
    /// Widths and order of the columns, for another session; empty while there is nothing to remember.
    QByteArray columnState() const;
    void restoreColumns(const QByteArray& state);

public slots:
    void copy();
    /// Asks for a file and writes the rows as shown.
    void exportRows();

signals:
    void currentRowChanged(int sourceRow);
    void selectionChanged();
    /// A line for the status bar.
    void said(const QString& text);

private:
    QHBoxLayout* makeToolRow();
    QPushButton* makeButton(const QString& text, const QString& objectName);
    void orderTabs();
    void applyFilter(const QString& text);
    void showCount();
    QString fetchAll();

    ListModel* mSource;
    Name mName;
    UserPrompts& mPrompts;
    ListProxy* mProxy;
    QLineEdit* mFilter;
    QLabel* mCount;
    QHBoxLayout* mToolRow;
    QLayout* mSecondRow = nullptr;
    QTableView* mView; // made behind what stands above it: so Tab goes
    TableBehaviour* mBehaviour;
    int mAddedButtons = 0;
    int mProgressColumn = -1;
    bool mFitted = false;
};
