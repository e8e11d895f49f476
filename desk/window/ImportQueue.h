#pragma once

#include "desk/window/FileIntake.h"

#include <QFrame>
#include <QList>

class QListWidget;
class QPushButton;

/// What waits for its import, one item a line, first the next one; hidden while nothing does.
class ImportQueue : public QFrame {
    Q_OBJECT

public:
    explicit ImportQueue(QWidget* parent = nullptr);

    const QList<IntakeItem>& items() const { return mItems; }
    bool isEmpty() const { return mItems.isEmpty(); }
    /// Behind what waits already.
    void append(const QList<IntakeItem>& items);
    /// Before it.
    void prepend(const QList<IntakeItem>& items);

public slots:
    /// Takes the first item and asks for its import.
    void next();
    /// Those selected; the first one where none is.
    void removeSelected();
    void clear();

signals:
    void wanted(const IntakeItem& item);

private:
    void show();

    QList<IntakeItem> mItems;
    QListWidget* mList;
};
