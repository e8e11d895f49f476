#pragma once

#include <QJsonObject>
#include <QJsonValue>
#include <QString>
#include <QStringList>

/// Reading a JSON document with complaints that say where.
namespace gateway {

/// An object of the document with the path to it. Readers take keys out of it; what is left at the end nobody
/// knows, and is complained of.
class JsonSection {
public:
    JsonSection(const QJsonObject& object, const QString& path, QStringList& complaints);

    /// "strategies.AITWAP" and "fields" are "strategies.AITWAP.fields".
    QString pathOf(const QString& key) const;
    void complain(const QString& key, const QString& what) const;

    bool has(const QString& key) const;
    /// Undefined where there is no such key. Every key that was asked for is known.
    QJsonValue take(const QString& key);
    /// Each answers its default where the key is absent or wrong; the latter is complained of.
    QString takeText(const QString& key);
    bool takeSwitch(const QString& key, bool byDefault);
    int takePositive(const QString& key, int byDefault);
    QStringList takeTexts(const QString& key);
    /// A section of its own; empty where the key is absent or wrong.
    JsonSection takeSection(const QString& key);
    void complainOfTheRest() const;

    QStringList keys() const { return mObject.keys(); }
    QStringList& complaints() const { return mComplaints; }

private:
    void expect(const QString& key, const QJsonValue& value, bool isRight, const QString& wanted) const;

    QJsonObject mObject;
    QString mPath;
    QStringList& mComplaints;
    QStringList mKnown;
};

} // namespace gateway
