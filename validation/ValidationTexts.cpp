#include "validation/ValidationTexts.h"

#include "table/FaultCatalogue.h"
#include "table/Rules.h"

namespace validation {

namespace {

const QString RowText = QStringLiteral("第%1行：%2\r\n");
const QString MarketRowText = QStringLiteral("第%1行：%2");
const QString NoAccountTypeText = QStringLiteral("第%行：%1\r\n");
const QString CheckAndImportAgain = QStringLiteral("请检查后重新导入");
const QString LineEnd = QStringLiteral("\r\n");

QString textOf(const table::Fault& fault)
{
    const QString sentence = table::sentence(fault);
    if (fault.row == 0) {
        return sentence;
    }
    if (fault.rule == table::rule::NoAccountType) {
        return NoAccountTypeText.arg(sentence);
    }
    const QString& text = fault.rule == table::rule::OnlyOnMarket ? MarketRowText : RowText;
    return text.arg(fault.row).arg(sentence);
}

} // namespace

QString textOfBatch(const table::Faults& faults)
{
    QString text;
    for (const table::Fault& fault : faults) {
        text += textOf(fault);
    }
    return text;
}

QString textOfAccountChange(const table::Faults& faults)
{
    QString text;
    for (const table::Fault& fault : faults) {
        text += table::sentence(fault) + LineEnd;
    }
    return text + CheckAndImportAgain;
}

} // namespace validation
