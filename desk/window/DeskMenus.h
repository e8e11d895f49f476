#pragma once

#include <QObject>

#include <functional>

class DeskWindow;
class QAction;
class QKeySequence;
class QMenu;

/// The desk's menus and their keys.
class DeskMenus : public QObject {
    Q_OBJECT

public:
    /// Fills the window's menu bar; its pages must exist.
    explicit DeskMenus(DeskWindow& window);

private:
    void makeFileMenu();
    void makeEditMenu();
    void makeRecentMenu(QMenu* menu);
    void makeViewMenu();
    void makeSkinEntries(QMenu* menu);
    void makeLanguageEntries(QMenu* menu);
    void makeProblemMenu();
    void makeHelpMenu();
    static void add(QMenu* menu, const QString& text, const QKeySequence& key,
                    const std::function<void()>& act);

    DeskWindow& mWindow;
};
