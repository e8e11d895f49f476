#pragma once

#include <QCoreApplication>

/// What a person reads on the desk, in the language chosen.
///
/// The source is the Chinese text, and what is shown where no translator is installed. One context for the
/// whole house: the same words are translated once. In a static table QT_TRANSLATE_NOOP("Words", "…"), and
/// Words::tr(…) where it is shown.
class Words {
    Q_DECLARE_TR_FUNCTIONS(Words)
};
