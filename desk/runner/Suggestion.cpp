#include "desk/runner/Suggestion.h"

#include "embedded_host/reference_data/Misspelling.h"
#include "words/Words.h"

namespace runner {

QString didYouMean(const QString& refusal, const QString& typed, const QStringList& known)
{
    const QString meant = misspellingOf(typed, known);
    return meant.isEmpty() ? refusal : Words::tr("%1；是否应为“%2”？").arg(refusal, meant);
}

} // namespace runner
