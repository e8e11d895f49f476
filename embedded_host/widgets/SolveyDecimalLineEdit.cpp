#include "host/SolveyDecimalLineEdit.h"

namespace {

constexpr double Limit = 1e15; // above it a double no longer holds hundredths

} // namespace

SolveyDecimalLineEdit::SolveyDecimalLineEdit(QWidget* parent) : QDoubleSpinBox(parent)
{
    setLocale(QLocale::c());
    setGroupSeparatorShown(false);
    setRange(-Limit, Limit);
    setButtonSymbols(QAbstractSpinBox::NoButtons);
    setAlignment(Qt::AlignRight | Qt::AlignVCenter);
}

SolveyDecimalLineEdit::~SolveyDecimalLineEdit() = default;
