#include "host/SolveyPushButton.h"

SolveyPushButton::SolveyPushButton(QWidget* parent) : QPushButton(parent) {}

SolveyPushButton::~SolveyPushButton() = default;
