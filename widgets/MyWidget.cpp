#include "widgets/MyWidget.h"

#include <QChildEvent>

MyWidget::MyWidget(QWidget *parent) : QWidget(parent) { }

MyWidget::~MyWidget() = default;

void MyWidget::childEvent(QChildEvent *event)
{
    QWidget::childEvent(event);
    // A child constructed in place gets its focus policy after it was added; by the time it
    // is polished it has one. When the proxy goes, deleted or moved to another parent, the
    // next editor takes over.
    if (event->removed() && event->child() == focusProxy())
        setFocusProxy(nullptr);
    if (!focusProxy())
        takeFirstEditorAsProxy();
}

void MyWidget::takeFirstEditorAsProxy()
{
    for (QObject *object : children()) {
        QWidget *child = qobject_cast<QWidget *>(object);
        if (child && !child->isWindow() && (child->focusPolicy() & Qt::TabFocus)) {
            setFocusProxy(child);
            return;
        }
    }
}
