#pragma once

#include "embedded_host/skin/SkinColours.h"

#include <QList>
#include <QString>
#include <QStringList>
#include <QVariant>

class IZelSkin;

/// Dresses the registered views in the chosen skin. No skin is chosen at first: a program without a display
/// stays as Qt makes it. GUI thread only.
///
///     skins.addView(&dialog, "Solvey/algoTrade/algoTradeNew.css");
///     skins.setSkin("dark"); // calls dialog.loadSkin(the sheet, with the dark colours)
class SkinService {
public:
    SkinService();
    ~SkinService();
    SkinService(const SkinService&) = delete;
    SkinService& operator=(const SkinService&) = delete;

    static QStringList names() { return SkinColours::skins(); }
    /// Empty while none is chosen.
    QString skin() const { return mSkin; }
    /// Gives the application the skin's palette and every view its sheet. An unknown name changes nothing.
    void setSkin(const QString& name);
    const SkinColours& colours() const { return mColours; }

    /// The sheet of a path in the chosen skin; invalid for an unknown path or without a skin.
    QVariant styleSheet(const QString& cssPath) const;
    /// Dresses the view now, if a skin is chosen, and whenever the skin changes. Not owned; a view that is
    /// registered again takes the new path.
    void addView(IZelSkin* view, const QString& cssPath);
    int viewCount() const { return mViews.size(); }

private:
    friend class IZelSkin;
    struct View {
        IZelSkin* view;
        QString cssPath;
    };

    bool isRegistered(const IZelSkin* view) const;
    void forget(const IZelSkin* view);
    static QList<SkinService*>& living();

    QString mSkin;
    SkinColours mColours;
    QList<View> mViews;
};
