#include <QDir>
#include <QFile>

#include <cstdio>

// Writes the lives of orders as a broker tells them, a report a line: fuzz_report_seeds DIR.

namespace {

const char* const Lives[] = {
    // acknowledged, filled in two slices, twice the same
    "35=8|17=E1|150=0|39=0|37=O1|14=0|6=0\n35=8|17=E2|150=F|39=1|37=O1|14=300|6=11.50\n"
    "35=8|17=E2|150=F|39=1|37=O1|14=300|6=11.50\n35=8|17=E3|150=F|39=2|37=O1|14=1000|6=11.55\n",
    // a fill taken back and corrected
    "35=8|17=E1|150=F|39=2|37=O1|14=1000|6=11.5\n35=8|17=E2|19=E1|150=H|39=1|37=O1|14=700|6=11.4\n"
    "35=8|17=E3|19=E1|150=G|39=1|37=O1|14=650|6=11.3\n",
    // refused; a duplicate; denied as an answer; more than was ordered
    "35=8|17=E1|150=8|39=8|37=NONE|103=3|58=no such account\n",
    "35=8|17=E1|150=8|39=8|37=NONE|103=6\n35=8|17=0|150=I|39=8|37=NONE|103=5|790=S0-1\n",
    "35=8|17=E1|150=F|39=2|37=O1|14=1001|6=11.5\n35=8|17=E2|150=F|39=1|37=O1|14=-1|6=nan\n",
    // cancelled while it fills; the cancel refused
    "35=8|17=E1|150=6|39=6|37=O1|14=100|6=11\n35=8|17=E2|150=4|39=4|37=O1|14=300|6=11\n"
    "35=8|17=E3|150=F|39=4|37=O1|14=200|6=11\n",
    "35=9|37=O1|39=1|102=0|434=1|58=too late\n35=9|37=NONE|39=8|102=1|434=1\n",
    // of two legs
    "35=8|17=E1|150=F|39=2|37=O1|14=1000|6=11|442=2|654=1\n"
    "35=8|17=E2|150=F|39=1|37=O1|14=500|6=9|442=2{600=000001|654=2\n35=8|17=E3|150=F|39=2|37=O1|442=3\n",
    // rejects
    "35=j|45=2|372=D|379=A-1|380=0|58=no\n35=3|45=2|372=D|373=1|58=no\n",
};

bool writeSeeds(const QDir& folder)
{
    bool written = folder.mkpath(QStringLiteral("."));
    int number = 0;
    for (const char* life : Lives) {
        QFile file(folder.filePath(QStringLiteral("life%1").arg(++number)));
        written = written && file.open(QIODevice::WriteOnly) && file.write(life) > 0;
    }
    return written;
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 2 || !writeSeeds(QDir(QString::fromLocal8Bit(argv[1]) + QLatin1String("/fuzz_reports")))) {
        std::fprintf(stderr, "usage: fuzz_report_seeds DIR\n");
        return 2;
    }
    return 0;
}
