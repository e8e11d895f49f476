#pragma once

#include "desk/window/DeskBooks.h"

#include <QWidget>

class EmbeddedHost;
class FilteredTable;
class QLabel;
class StraysModel;
class UserPrompts;
class WireFieldsModel;
class WireModel;

/// How the gateways of the ledger stand, what they said and heard, the fields of the message chosen, and the
/// reports that belong to nothing.
class GatewayPage : public QWidget {
    Q_OBJECT

public:
    GatewayPage(EmbeddedHost& host, const DeskBooks& books, UserPrompts& prompts, QWidget* parent = nullptr);

    /// The message log.
    FilteredTable* table() const { return mLog; }
    FilteredTable* fields() const { return mFields; }
    FilteredTable* strays() const { return mStrays; }
    /// A line for each gateway.
    QString sessions() const;

public slots:
    /// Reads what came since the last time.
    void refresh();

signals:
    void said(const QString& text);

protected:
    void showEvent(QShowEvent* event) override;

private:
    void makeLayout();
    void readMessages();
    void showSessions();
    void showFields();
    QString lineOf(const ledger::Gateway& gateway) const;
    QString lastMessageOf(const QString& session) const;
    QString whyLoggedOut(const QString& session) const;

    const DeskBooks& mBooks;
    WireModel* mLogModel;
    WireFieldsModel* mFieldsModel;
    StraysModel* mStraysModel;
    QLabel* mSessions;
    FilteredTable* mLog;
    FilteredTable* mFields;
    FilteredTable* mStrays;
};
