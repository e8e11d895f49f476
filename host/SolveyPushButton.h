#pragma once

#include "host/HostApi.h"

#include <QPushButton>

/// The host's push button.
class ALGO_HOST_API SolveyPushButton : public QPushButton {
    Q_OBJECT

public:
    explicit SolveyPushButton(QWidget* parent = nullptr);
    ~SolveyPushButton() override;
};
