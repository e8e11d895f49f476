// save_program PATH SIZE: saves so many bytes there. Status 0, or 1 with the reason on standard error.

#include "files/Save.h"

#include <QFile>

#include <cstdio>

int main(int argc, char* argv[])
{
    if (argc != 3) {
        return 2;
    }
    const QByteArray bytes(QByteArray(argv[2]).toInt(), 'n');
    const Outcome<void> saved = files::save(QFile::decodeName(argv[1]), bytes);
    std::fputs(saved.error.toUtf8().constData(), stderr);
    return saved.ok() ? 0 : 1;
}
