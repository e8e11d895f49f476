#include "desk/runner/StandardInput.h"

#include "words/Words.h"

#include <QFile>

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
    QFile kept(mFolder.filePath(QStringLiteral("stdin")));
    if (!in.open(stdin, QIODevice::ReadOnly) || !kept.open(QIODevice::WriteOnly)) {
        return {{}, Words::tr("无法读取标准输入：%1").arg(kept.errorString())};
    }
    QByteArray piece;
    do {
        piece = in.read(PieceBytes);
    } while (!piece.isEmpty() && kept.write(piece) == piece.size());
    if (in.error() != QFile::NoError || !piece.isEmpty() || !kept.flush()) {
        return {
            {},
            Words::tr("无法读取标准输入：%1").arg(piece.isEmpty() ? in.errorString() : kept.errorString())};
    }
    return {kept.fileName(), {}};
}

} // namespace runner
