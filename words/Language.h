#pragma once

#include "table/FaultCatalogue.h"
#include "words/Words.h"

#include <QLocale>
#include <QStringList>

#include <optional>

/// Which language the desk speaks. It is chosen once, before the first text is shown, and holds for the
/// process.
namespace words {

using table::Language;

/// English in an English locale. In every other one, C and POSIX among them, the desk's own language is
/// Chinese.
Language languageOf(const QLocale& locale);
/// Of "en" or "zh".
std::optional<Language> languageNamed(const QString& name);
QString nameOf(Language language);

/// What `--language en`, `--language=en` or ALGODESK_LANGUAGE asks for; empty where nothing does.
struct Asked {
    std::optional<Language> language;
    QString error; ///< names a language that the desk does not speak
};
/// Takes the option out of the arguments, wherever it stands before a "--".
Asked takeAsked(QStringList& arguments);

/// Lets the application speak: the desk's own texts, and Qt's of its dialogs. There must be an application;
/// asked again, the other language takes the first one's place.
void speak(Language language);

/// What the application speaks: Chinese, as the texts' source is, until something else was asked for.
inline Language spoken()
{
    // Not shown: by it the program knows which language it speaks.
    return Words::tr("中文") == QLatin1String("English") ? Language::English : Language::Chinese;
}

/// The sentence of a fault in the language spoken. The dialog's own rules have a Chinese sentence alone.
inline QString sentence(const table::Fault& fault)
{
    return table::sentence(fault, spoken());
}

} // namespace words
