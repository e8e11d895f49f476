#include "host/SolveyDecimalLineEdit.h"

namespace {

constexpr double Limit = 1e15; // up to it a double tells eighths apart

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
