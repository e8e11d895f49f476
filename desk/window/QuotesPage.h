#pragma once

#include <QStringList>
#include <QTimer>
#include <QWidget>

class EmbeddedHost;
class FilteredTable;
class TextTable;
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
    QStringList rowOf(const QString& symbol) const;
    int decimalsOf(const QString& symbol) const;
    QColor tintOf(int row, int column) const;

    EmbeddedHost& mHost;
    TextTable* mModel;
    FilteredTable* mTable;
    QTimer mSoon; // many changes are drawn once
};
