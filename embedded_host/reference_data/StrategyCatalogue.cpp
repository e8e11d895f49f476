#include "embedded_host/reference_data/StrategyCatalogue.h"

#include "embedded_host/reference_data/Misspelling.h"
#include "embedded_host/reference_data/ReferenceFaults.h"
#include "embedded_host/reference_data/ReferenceFile.h"
#include "host/AlgoConstants.h"

#include <QHash>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QVector>

namespace {

/// The same bytes, where lines end with carriage returns alone with line feeds instead.
QByteArray withLineFeeds(QByteArray json)
{
    return json.contains('\n') ? json : json.replace('\r', '\n');
}

int lineAt(const QByteArray& json, int offset)
{
    return 1 + json.left(offset).count('\n');
}

bool isBlank(char c)
{
    return c == ' ' || c == '\t' || c == '\r' || c == '\n';
}

/// The line on which each element of the array begins; `json` is known to be sound.
QVector<int> elementLines(const QByteArray& json)
{
    QVector<int> lines;
    int line = 1;
    int depth = 0;
    bool inText = false;
    bool awaitsElement = false;
    for (int i = 0; i < json.size(); ++i) {
        const char c = json.at(i);
        line += c == '\n' ? 1 : 0;
        if (inText) {
            i += c == '\\' ? 1 : 0;
            inText = c != '"';
            continue;
        }
        if (awaitsElement && !isBlank(c)) {
            lines.append(line);
            awaitsElement = false;
        }
        inText = c == '"';
        depth += (c == '[' || c == '{') ? 1 : (c == ']' || c == '}') ? -1 : 0;
        awaitsElement = awaitsElement || (depth == 1 && (c == ',' || (c == '[' && lines.isEmpty())));
    }
    return lines;
}

/// Reads one entry; returns what is wrong with it, empty when nothing is.
class EntryReader {
public:
    explicit EntryReader(const QJsonObject& entry) : mEntry(entry), mUnknownKeys(entry.keys())
    {
        for (const char* key : {"name", "alias", "globalType", "paramFormats"}) {
            mUnknownKeys.removeAll(QLatin1String(key));
        }
    }

    QString read(AesStrategy& strategy)
    {
        const QString name = text("name");
        const QString alias = text("alias", name);
        const QString globalType = text("globalType", Algo_Values::AlgoGlobalType::algo);
        const QString paramFormats = document("paramFormats");
        if (mFault.isEmpty() && name.trimmed().isEmpty()) {
            mFault = reference_faults::emptyKey(QStringLiteral("name"));
        }
        strategy = AesStrategy(name, alias, paramFormats, globalType);
        return mFault;
    }

private:
    void fail(const QString& fault)
    {
        if (mFault.isEmpty()) {
            mFault = fault;
        }
    }

    /// An absent key has its default, but not where another looks like a slip for it.
    QJsonValue valueOf(const QString& key)
    {
        const QString misspelt = mEntry.contains(key) ? QString() : misspellingOf(key, mUnknownKeys);
        if (!misspelt.isEmpty()) {
            fail(reference_faults::misspeltKey(key, misspelt));
        }
        return mEntry.value(key);
    }

    QString text(const char* key, const QString& byDefault = QString())
    {
        const QJsonValue value = valueOf(QLatin1String(key));
        if (!value.isString() && !value.isUndefined() && !value.isNull()) {
            fail(reference_faults::notText(QString::fromLatin1(key)));
        }
        const QString text = bounded(key, value.toString(), reference_limits::TextCharacters);
        return text.isEmpty() ? byDefault : text;
    }

    QString bounded(const char* key, const QString& text, int most)
    {
        if (text.size() > most) {
            fail(reference_faults::tooLong(QString::fromLatin1(key), most));
        }
        return text;
    }

    QString document(const char* key)
    {
        return bounded(key, documentText(key), reference_limits::DocumentCharacters);
    }

    QString documentText(const char* key)
    {
        const QJsonValue value = valueOf(QLatin1String(key));
        if (value.isArray()) {
            return QString::fromUtf8(QJsonDocument(value.toArray()).toJson(QJsonDocument::Compact));
        }
        if (value.isObject()) {
            return QString::fromUtf8(QJsonDocument(value.toObject()).toJson(QJsonDocument::Compact));
        }
        if (!value.isString() && !value.isUndefined() && !value.isNull()) {
            fail(reference_faults::notDocument(QString::fromLatin1(key)));
        }
        return value.toString();
    }

    const QJsonObject mEntry;
    QStringList mUnknownKeys;
    QString mFault;
};

/// Reads the array's elements; returns what is wrong with the one at `position`, at which it stops.
QString readEntries(const QJsonArray& entries, const QVector<int>& lines, QList<AesStrategy>& strategies,
                    int& position)
{
    QHash<QString, int> lineOfName;
    for (position = 0; position < entries.size(); ++position) {
        if (!entries.at(position).isObject()) {
            return reference_faults::notObject();
        }
        AesStrategy strategy;
        const QString fault = EntryReader(entries.at(position).toObject()).read(strategy);
        if (!fault.isEmpty()) {
            return fault;
        }
        if (lineOfName.contains(strategy.name())) {
            return reference_faults::duplicateKey(QStringLiteral("name"), strategy.name(),
                                                  lineOfName.value(strategy.name()));
        }
        lineOfName.insert(strategy.name(), lines.value(position));
        strategies.append(strategy);
    }
    return QString();
}

} // namespace

bool readStrategyCatalogue(const QByteArray& json, const QString& path, QList<AesStrategy>& strategies,
                           QString& error)
{
    QJsonParseError syntax;
    const QJsonDocument document = QJsonDocument::fromJson(json, &syntax);
    if (syntax.error != QJsonParseError::NoError) {
        error = reference_faults::at(path, lineAt(withLineFeeds(json), syntax.offset),
                                     reference_faults::jsonSyntax(syntax.errorString()));
        return false;
    }
    if (!document.isArray()) {
        error = reference_faults::at(path, 1, reference_faults::notArray());
        return false;
    }
    if (document.array().size() > reference_limits::Strategies) {
        error = reference_faults::at(path, 1, reference_faults::tooManyEntries(reference_limits::Strategies));
        return false;
    }
    const QVector<int> lines = elementLines(withLineFeeds(json));
    int position = 0;
    const QString fault = readEntries(document.array(), lines, strategies, position);
    if (!fault.isEmpty()) {
        error = reference_faults::at(path, lines.value(position), fault);
        return false;
    }
    return true;
}
