#pragma once

#include "host/HostApi.h"

#include <QDoubleSpinBox>

/// A number without spin buttons: -1e15 to 1e15, a decimal point in every locale, no group separators.
class ALGO_HOST_API SolveyDecimalLineEdit : public QDoubleSpinBox {
    Q_OBJECT

public:
    explicit SolveyDecimalLineEdit(QWidget* parent = nullptr);
    ~SolveyDecimalLineEdit() override;
};
