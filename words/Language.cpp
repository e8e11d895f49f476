#include "words/Language.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QTranslator>

static void askForResource() // in no namespace, or it is another's that is asked for
{
    Q_INIT_RESOURCE(words); // of a static library: left out unless it is asked for
}

namespace {

const QString Option = QStringLiteral("--language");

/// One for the life of each application: the desk's texts, or Qt's.
QTranslator* translatorOf(const QString& name)
{
    QCoreApplication* application = QCoreApplication::instance();
    auto* found = application->findChild<QTranslator*>(name, Qt::FindDirectChildrenOnly);
    if (found == nullptr) {
        found = new QTranslator(application);
        found->setObjectName(name);
    }
    QCoreApplication::removeTranslator(found);
    return found;
}

} // namespace

namespace words {

Language languageOf(const QLocale& locale)
{
    return locale.language() == QLocale::English ? Language::English : Language::Chinese;
}

std::optional<Language> languageNamed(const QString& name)
{
    if (name == QLatin1String("en")) {
        return Language::English;
    }
    return name == QLatin1String("zh") ? std::make_optional(Language::Chinese) : std::nullopt;
}

QString nameOf(Language language)
{
    return language == Language::English ? QStringLiteral("en") : QStringLiteral("zh");
}

Asked takeAsked(QStringList& arguments)
{
    QString name = qEnvironmentVariable("ALGODESK_LANGUAGE");
    QString asked = QStringLiteral("ALGODESK_LANGUAGE");
    for (int i = 0; i < arguments.size() && arguments.at(i) != QLatin1String("--");) {
        const bool isApart = arguments.at(i) == Option;
        if (!isApart && !arguments.at(i).startsWith(Option + QLatin1Char('='))) {
            ++i;
            continue;
        }
        asked = Option;
        name = isApart ? arguments.value(i + 1) : arguments.at(i).mid(Option.size() + 1);
        arguments.erase(arguments.begin() + i,
                        arguments.begin() + qMin(i + (isApart ? 2 : 1), arguments.size()));
    }
    const std::optional<Language> language = languageNamed(name);
    const bool isWrong = !language && (asked == Option || !name.isEmpty());
    return {language, isWrong ? Words::tr("%1 应为 en 或 zh，而不是“%2”").arg(asked, name) : QString()};
}

void speak(Language language)
{
    askForResource();
    QTranslator* own = translatorOf(QStringLiteral("translator_words"));
    if (language == Language::English && own->load(QStringLiteral(":/words/algodesk_en.qm"))) {
        QCoreApplication::installTranslator(own);
    }
    QTranslator* qt = translatorOf(QStringLiteral("translator_qt"));
    const QString file =
        language == Language::English ? QStringLiteral("qtbase_en") : QStringLiteral("qtbase_zh_CN");
    if (qt->load(file, QLibraryInfo::location(QLibraryInfo::TranslationsPath))) {
        QCoreApplication::installTranslator(qt);
    }
}

} // namespace words
