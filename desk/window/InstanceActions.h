#pragma once

#include "ledger/Ledger.h"

#include <QList>
#include <QObject>
#include <QString>
#include <QStringList>

#include <memory>

class FilteredTable;
class InstancesModel;
class QAction;
class QPushButton;
struct DeskBooks;

/// Starting, stopping and withdrawing the instances that are selected in a list: by button, key and context
/// menu, allowed where it does something to one of them. Each is asked for with its count, and answered for
/// each instance.
class InstanceActions : public QObject {
    Q_OBJECT

public:
    /// The list's buttons are made here.
    InstanceActions(const DeskBooks& books, InstancesModel& model, FilteredTable& table);
    ~InstanceActions() override;

    /// "已选 3 个：买入 1,234.00，卖出 0.00"; empty where nothing is selected.
    QString summary() const;

public slots:
    /// What can be done to the instances that are selected now.
    void refresh();

signals:
    /// What was done, in one line, and what came of each instance, a line each.
    void done(const QString& summary, const QStringList& results);
    /// It could not be done: why, for the user.
    void failed(const QString& error);

private:
    struct Deed;
    struct Offer {
        const Deed* deed;
        QAction* action;
        QPushButton* button;
    };

    static const QList<Deed>& deeds();
    QList<ledger::Instance> selected() const;
    void offer(const Deed& deed);
    void perform(const Deed& deed);
    bool isWanted(const Deed& deed, const QList<ledger::Instance>& allowed, int others) const;

    const DeskBooks& mBooks;
    InstancesModel& mModel;
    FilteredTable& mTable;
    QList<Offer> mOffers;
};
