#include "browser/PropertyWidgetGroupWidget.h"

#include <QScrollArea>
#include <QVBoxLayout>

namespace TavoLib {

void synchronizeLabelWidths(const QList<PropertyWidget *> &panels)
{
    int width = 0;
    for (PropertyWidget *panel : panels)
        width = qMax(width, panel->maxLabelWidth());
    for (PropertyWidget *panel : panels)
        panel->setMaxLabelWidth(width);
}

PropertyWidgetGroupWidget::PropertyWidgetGroupWidget(QWidget *parent, const QString &title, bool withScrollArea)
    : QWidget(parent)
{
    setWindowTitle(title);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    mMainWidget = new QWidget;
    mColumn = new QVBoxLayout(mMainWidget);
    mColumn->setContentsMargins(0, 0, 0, 0);
    mColumn->addStretch(1);
    if (withScrollArea) {
        auto *area = new QScrollArea(this);
        area->setWidgetResizable(true);
        area->setFrameShape(QFrame::NoFrame);
        area->setWidget(mMainWidget);
        layout->addWidget(area);
    } else {
        mMainWidget->setParent(this);
        layout->addWidget(mMainWidget);
    }
}

PropertyWidgetGroupWidget::~PropertyWidgetGroupWidget()
{
    // The panels' last signals must not reach this half-destroyed widget.
    for (PropertyWidget *widget : widgets())
        widget->disconnect(this);
}

QList<PropertyWidget *> PropertyWidgetGroupWidget::widgets() const
{
    QList<PropertyWidget *> result;
    for (const QPointer<PropertyWidget> &widget : mWidgets)
        if (widget)
            result << widget.data();
    return result;
}

void PropertyWidgetGroupWidget::addWidget(PropertyWidget *widget)
{
    if (!widget || widgets().contains(widget))
        return;
    mWidgets << widget;
    // Before the stretch that keeps the column at the top.
    mColumn->insertWidget(mColumn->count() - 1, widget);
    connect(widget, QOverload<>::of(&PropertyWidget::signalPropertyChanged), this,
        &PropertyWidgetGroupWidget::anyPropertyChanged);
}

void PropertyWidgetGroupWidget::synchronizeLabelSizes()
{
    synchronizeLabelWidths(widgets());
}

void PropertyWidgetGroupWidget::synchronizeLabelSizes(PropertyWidget *widget)
{
    if (widget && widgets().contains(widget))
        synchronizeLabelSizes();
}

void PropertyWidgetGroupWidget::anyPropertyChanged()
{
    synchronizeLabelSizes(qobject_cast<PropertyWidget *>(sender()));
    emit signalPropertyChanged();
}

} // namespace TavoLib
