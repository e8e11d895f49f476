#include "desk/runner/StandardInput.h"

#include "words/Words.h"

#include <QFile>
#include <QTemporaryFile>

namespace runner {

const QString& StandardInput::name()
{
    static const QString dash = QStringLiteral("-");
    return dash;
}

Outcome<QString> StandardInput::keep()
{
    constexpr qint64 PieceBytes = 1 << 20;
    QFile in;
    QTemporaryFile kept(mFolder.filePath(QStringLiteral("XXXXXX")));
    kept.setAutoRemove(false); // its folder is
    if (!in.open(stdin, QIODevice::ReadOnly) || !kept.open()) {
        return {{}, Words::tr("无法读取标准输入：%1").arg(kept.errorString())};
    }
    QByteArray piece;
    do {
        piece = in.read(PieceBytes);
    } while (!piece.isEmpty() && kept.write(piece) == piece.size());
    const bool isKept =
        piece.isEmpty() && kept.flush() && kept.rename(mFolder.filePath(QStringLiteral("stdin")));
    if (in.error() != QFile::NoError || !isKept) {
        return {
            {},
            Words::tr("无法读取标准输入：%1").arg(piece.isEmpty() ? in.errorString() : kept.errorString())};
    }
    return {kept.fileName(), {}};
}

} // namespace runner
