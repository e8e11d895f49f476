#include "embedded_host/table_check/TitleLint.h"

#include <QVector>

#include <algorithm>
#include <numeric>

namespace table_lint {
namespace {

constexpr int LongestTitle = 64; ///< nothing longer is a misspelt title

QString plain(const QString& title)
{
    QString text;
    for (const QChar c : title.normalized(QString::NormalizationForm_KC)) {
        if (c.isLetterOrNumber()) {
            text.append(c.toLower());
        }
    }
    return text;
}

/// Characters to insert, remove or replace to make one text of the other.
int distance(const QString& a, const QString& b)
{
    QVector<int> row(b.size() + 1);
    std::iota(row.begin(), row.end(), 0);
    for (int i = 0; i < a.size(); ++i) {
        int diagonal = row[0];
        row[0] = i + 1;
        for (int j = 0; j < b.size(); ++j) {
            const int replaced = diagonal + (a.at(i) == b.at(j) ? 0 : 1);
            diagonal = row[j + 1];
            row[j + 1] = std::min({replaced, diagonal + 1, row[j] + 1});
        }
    }
    return row.last();
}

} // namespace

QString nearestTitle(const QString& title, const QStringList& known)
{
    const QString wanted = plain(title.left(LongestTitle));
    QString nearest;
    int best = std::max(2, wanted.size() / 3 + 1); // one character may differ, or a third of them
    for (const QString& candidate : wanted.size() > 1 ? known : QStringList()) {
        const int away = distance(wanted, plain(candidate.left(LongestTitle)));
        if (away < best) {
            best = away;
            nearest = candidate;
        }
    }
    return nearest;
}

} // namespace table_lint
