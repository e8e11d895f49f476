#pragma once

#include <QFrame>

class QComboBox;
class QLineEdit;
class QListView;
class QSortFilterProxyModel;

/// Finds a strategy of the dialog's box by a part of its name or of its code. The box itself stays as it is;
/// a choice is made in it when it was found here, and only then.
///
///     auto* finder = new StrategyFinder(box);   // the box owns it
///     finder->open();                           // or a letter typed while the box has the focus
class StrategyFinder : public QFrame {
    Q_OBJECT

public:
    /// The items' data are the codes.
    explicit StrategyFinder(QComboBox* box);

    /// Below the box, with a search begun.
    void open(const QString& search = QString());

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool searchOnKey(QEvent* event);
    bool moveOnKey(QEvent* event);
    void filter(const QString& search);
    void choose();
    void showCode();

    QComboBox* mBox;
    QLineEdit* mSearch;
    QListView* mList;
    QSortFilterProxyModel* mFound;
};
