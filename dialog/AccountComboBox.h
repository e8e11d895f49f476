#pragma once

#include "host/SolveyAccountComboBox.h"

/// The host's account box in the mode that the dialog wants: a form knows only constructors that take a
/// parent.
class AccountComboBox : public SolveyAccountComboBox {
public:
    explicit AccountComboBox(QWidget* parent = nullptr)
        : SolveyAccountComboBox(parent, DisplayMode::NameAndAccount)
    {
    }
};
