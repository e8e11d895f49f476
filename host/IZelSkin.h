#pragma once

#include "host/HostApi.h"

#include <QVariant>

/// What can wear a skin. The skin service keeps plain pointers; the host's destructor forgets the view.
class ALGO_HOST_API IZelSkin {
public:
    /// Takes a style sheet as text; an invalid variant changes nothing.
    virtual void loadSkin(const QVariant& style) = 0;

    IZelSkin(const IZelSkin&) = delete;
    IZelSkin& operator=(const IZelSkin&) = delete;

protected:
    IZelSkin();
    ~IZelSkin();
};
