#include "embedded_host/table_reader/shared/CellStyles.h"

namespace table_reader {
namespace {

/// Each format's code is looked at once, however many styles show it.
class Looks {
public:
    explicit Looks(const QHash<int, QString>& codes) : mCodes(codes) {}

    NumberLook of(int number)
    {
        auto known = mLooks.find(number);
        if (known == mLooks.end()) {
            const auto own = mCodes.constFind(number);
            known = mLooks.insert(number, NumberLook(own == mCodes.cend() ? builtInCode(number) : *own));
        }
        return *known;
    }

private:
    const QHash<int, QString>& mCodes;
    QHash<int, NumberLook> mLooks;
};

} // namespace

CellStyles StyleParts::styles(bool forReport) const
{
    QHash<int, NumberFormat> kinds;
    for (auto code = codes.cbegin(); code != codes.cend(); ++code) {
        kinds.insert(code.key(), customFormat(*code));
    }
    CellStyles styles;
    styles.formats = formatsOf(formatNumbers, kinds);
    if (!forReport) {
        return styles;
    }
    Looks looks(codes);
    for (const int number : formatNumbers) {
        styles.looks.append(looks.of(number));
    }
    for (const int font : fontNumbers) {
        styles.struck.append(struckFonts.value(font, false));
    }
    return styles;
}

} // namespace table_reader
