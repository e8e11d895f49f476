#pragma once

#include <QTimer>
#include <QWidget>

class EmbeddedHost;
class FilteredTable;
class QuotesModel;
struct QuoteLine;
class UserPrompts;

/// The quotes of the securities that were subscribed to, moving; up in the colour of buying, down in that of
/// selling.
class QuotesPage : public QWidget {
    Q_OBJECT

public:
    QuotesPage(EmbeddedHost& host, UserPrompts& prompts, QWidget* parent = nullptr);

    FilteredTable* table() const { return mTable; }

protected:
    void showEvent(QShowEvent* event) override;

private:
    void showQuotes();
    QuoteLine quoteOf(const QString& symbol) const;

    EmbeddedHost& mHost;
    QuotesModel* mModel;
    FilteredTable* mTable;
    QTimer mSoon; // many changes are drawn once
};
