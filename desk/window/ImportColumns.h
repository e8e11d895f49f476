#pragma once

#include <QJsonObject>
#include <QObject>

class DeskSettings;
class EmbeddedHost;
class QTableView;

/// What the trader made of the columns of the import table: widths, those hidden, their order. It is known by
/// the titles, since each strategy has columns of its own, and kept in the settings.
class ImportColumns : public QObject {
    Q_OBJECT

public:
    /// The view owns it.
    ImportColumns(EmbeddedHost& host, QTableView* view);

    /// After the table got other columns, or fitted them to its rows.
    void apply();

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QString titleOf(int column) const;
    void keepWidth(int column, int width);
    void keepOrder();
    void keepChoice(int column, bool isShown);
    void keep(const QString& title, const QString& what, const QJsonValue& value);
    void save() const;

    EmbeddedHost& mHost;
    QTableView* mView;
    QJsonObject mKept; ///< title -> {"width", "hidden"}; "" -> {"order": titles}
    bool mIsDragging = false;
    bool mIsApplying = false;
};
