#pragma once

#include <QObject>
#include <QString>

class NaturalOrderProxy;
class QKeyEvent;
class QTableView;

/// What every table of the house does: a click on a column's title sorts up, a second one down, a third one
/// gives the first order back; Ctrl+C copies the selected rows; rows are one dense line each; Tab leaves the
/// table; an empty table says why it is empty.
class TableBehaviour : public QObject {
    Q_OBJECT

public:
    /// Gives the view `proxy` as its model; the view owns the behaviour.
    TableBehaviour(QTableView* view, NaturalOrderProxy* proxy);

    void setSortable(bool sortable);
    /// Back to the source's order, as if no title had been clicked.
    void resetOrder();
    /// Shown in the middle of a table whose source has no rows.
    void setEmptyText(const QString& text);
    /// What stands there now: of rows that a filter hides it is not said that there are none. Empty where
    /// rows are shown.
    QString emptyText() const;

    /// The selected rows as shown: shown columns separated by tabs, lines by line feeds, the serial number
    /// left out.
    QString selectedRowsAsText() const;
    void copySelection() const;

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool copyOnKey(const QKeyEvent* event) const;
    void setUpLook();
    void sortByClick(int column);
    void paintEmptyText();

    QTableView* mView;
    NaturalOrderProxy* mProxy;
    QString mEmptyText;
    bool mSortable = false;
};
