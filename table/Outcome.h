#pragma once

#include <QString>

/// What a function that can fail answers: a value, or a sentence for the user that says why there is none.
/// The one convention of the house; nobody throws, and no result has a second meaning.
///
///     Outcome<Batch> created = ledger.createBatch(draft);
///     if (!created.ok()) { … created.error … }
template <typename Value> struct Outcome {
    Value value{};
    QString error; ///< empty on success

    bool ok() const { return error.isEmpty(); }
};

/// Of a function that has nothing to give back.
template <> struct Outcome<void> {
    QString error;

    bool ok() const { return error.isEmpty(); }
};
