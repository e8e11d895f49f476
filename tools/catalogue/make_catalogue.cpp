// make_catalogue SOURCE OUT: composes the strategy catalogue from tools/catalogue/source into
// reference_data/strategies.json.

#include "files/Save.h"
#include "tools/catalogue/Catalogue.h"

#include <QFile>
#include <QString>

#include <cstdio>

namespace {

int refuse(const QString& what)
{
    std::fprintf(stderr, "make_catalogue: %s\n", qPrintable(what));
    return 2;
}

} // namespace

int main(int argc, char* argv[])
{
    if (argc != 3) {
        return refuse(QStringLiteral("usage: make_catalogue SOURCE_FOLDER OUT"));
    }
    QString error;
    const QByteArray json = catalogue::compose(QFile::decodeName(argv[1]), error);
    if (!error.isEmpty()) {
        return refuse(error);
    }
    const QString out = QFile::decodeName(argv[2]);
    const Outcome<void> saved = files::save(out, json);
    return saved.ok() ? 0 : refuse(files::cannotWrite(out, saved.error));
}
