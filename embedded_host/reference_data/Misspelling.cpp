#include "embedded_host/reference_data/Misspelling.h"

#include <QRegularExpression>
#include <QVector>

#include <algorithm>

namespace {

constexpr int LongName = 7; ///< letters; a shorter one is two slips away from too many other words

QString folded(QString text)
{
    static const QRegularExpression filling(QStringLiteral("[\\s_-]"));
    return text.remove(filling).toCaseFolded();
}

/// Letters to change, drop, add or swap with their neighbour.
int slipsBetween(const QString& a, const QString& b)
{
    QVector<QVector<int>> slips(a.size() + 1, QVector<int>(b.size() + 1)); // of the first i and j letters
    for (int i = 0; i <= a.size(); ++i) {
        for (int j = 0; j <= b.size(); ++j) {
            if (i == 0 || j == 0) {
                slips[i][j] = i + j;
                continue;
            }
            const int change = a[i - 1] == b[j - 1] ? 0 : 1;
            slips[i][j] = std::min({slips[i - 1][j] + 1, slips[i][j - 1] + 1, slips[i - 1][j - 1] + change});
            if (i > 1 && j > 1 && a[i - 1] == b[j - 2] && a[i - 2] == b[j - 1]) {
                slips[i][j] = std::min(slips[i][j], slips[i - 2][j - 2] + 1);
            }
        }
    }
    return slips.last().last();
}

} // namespace

QString misspellingOf(const QString& name, const QStringList& texts)
{
    const QString wanted = folded(name);
    const int most = wanted.size() < LongName ? 1 : 2;
    const auto found = std::find_if(texts.cbegin(), texts.cend(), [&](const QString& text) {
        const QString written = folded(text);
        return qAbs(written.size() - wanted.size()) <= most && slipsBetween(wanted, written) <= most;
    });
    return found == texts.cend() ? QString() : *found;
}
