#pragma once

#include <QObject>

class QTableView;

/// Right-clicked, or asked for by the menu key, a table's titles offer to hide and to show columns. The last
/// one stays.
class ColumnMenu : public QObject {
    Q_OBJECT

public:
    /// The view owns it.
    explicit ColumnMenu(QTableView* view);

    bool eventFilter(QObject* watched, QEvent* event) override;

signals:
    /// The user hid a column, or showed it again.
    void chosen(int column, bool isShown);

private:
    void open(const QPoint& place);

    QTableView* mView;
};
