#include "embedded_host/skin/SkinService.h"

#include "host/IZelSkin.h"

#include <QApplication>
#include <QFile>

#include <algorithm>

SkinService::SkinService()
{
    living().append(this);
}

SkinService::~SkinService()
{
    living().removeOne(this);
}

void SkinService::setSkin(const QString& name)
{
    SkinColours colours = SkinColours::ofSkin(name);
    if (colours.isEmpty()) {
        return;
    }
    mSkin = name;
    mColours = colours;
    if (qobject_cast<QApplication*>(QCoreApplication::instance())) {
        QApplication::setPalette(mColours.palette());
    }
    const QList<View> views = mViews; // a view that dresses may bring others, or take them with it
    for (const View& view : views) {
        if (isRegistered(view.view)) {
            view.view->loadSkin(styleSheet(view.cssPath));
        }
    }
}

QVariant SkinService::styleSheet(const QString& cssPath) const
{
    if (mSkin.isEmpty()) {
        return {};
    }
    QFile file(QStringLiteral(":/skin/sheets/") + cssPath);
    if (!file.open(QIODevice::ReadOnly)) {
        return {};
    }
    return mColours.filledIn(QString::fromUtf8(file.readAll()));
}

void SkinService::addView(IZelSkin* view, const QString& cssPath)
{
    forget(view);
    mViews.append({view, cssPath});
    if (!mSkin.isEmpty()) {
        view->loadSkin(styleSheet(cssPath));
    }
}

bool SkinService::isRegistered(const IZelSkin* view) const
{
    return std::any_of(mViews.begin(), mViews.end(),
                       [view](const View& entry) { return entry.view == view; });
}

void SkinService::forget(const IZelSkin* view)
{
    const auto gone = std::remove_if(mViews.begin(), mViews.end(),
                                     [view](const View& entry) { return entry.view == view; });
    mViews.erase(gone, mViews.end());
}

QList<SkinService*>& SkinService::living()
{
    static QList<SkinService*> services;
    return services;
}

IZelSkin::IZelSkin() = default;

IZelSkin::~IZelSkin()
{
    // The view may have been registered with a host that is no longer the current one, or outlive all hosts.
    for (SkinService* service : qAsConst(SkinService::living())) {
        service->forget(this);
    }
}
