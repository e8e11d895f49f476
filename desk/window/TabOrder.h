#pragma once

#include <QList>
#include <QWidget>

/// Tab goes as the screen is read; a widget that was made later stands at the end of its window's order.
namespace tab_order {

/// What takes the focus in a part of a window, itself included, in the order of Tab.
inline QList<QWidget*> within(QWidget& part)
{
    QList<QWidget*> order;
    QWidget* window = part.window();
    for (QWidget* next = window->nextInFocusChain(); next != window; next = next->nextInFocusChain()) {
        if ((next == &part || part.isAncestorOf(next)) && next->focusPolicy() != Qt::NoFocus) {
            order.append(next);
        }
    }
    return order;
}

/// Puts all of the second part behind the first.
inline void placeBehind(QWidget& first, QWidget& second)
{
    const QList<QWidget*> before = within(first);
    QWidget* last = before.isEmpty() ? nullptr : before.last();
    for (QWidget* next : within(second)) {
        QWidget::setTabOrder(last, next);
        last = next;
    }
}

} // namespace tab_order
