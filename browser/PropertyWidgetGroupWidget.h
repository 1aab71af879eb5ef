#pragma once

// Several property panels shown and driven as one: stacked in a column (in a scroll area
// when asked), their labels ending at one edge, their changes reported as one signal.
#include "browser/PropertyWidget.h"

#include <QList>
#include <QPointer>

class QVBoxLayout;

namespace TavoLib {

// Gives every panel of the list the largest label width among them (at least 0).
TAVOLIBGUI_EXPORT void synchronizeLabelWidths(const QList<PropertyWidget *> &panels);

class TAVOLIBGUI_EXPORT PropertyWidgetGroupWidget : public QWidget
{
    Q_OBJECT
public:
    PropertyWidgetGroupWidget(QWidget *parent, const QString &title, bool withScrollArea);
    ~PropertyWidgetGroupWidget() override;

    // The panel goes at the end of the column and belongs to this widget; a panel the host
    // deletes earlier is forgotten.
    void addWidget(PropertyWidget *widget);
    // The panels still alive, in order.
    QList<PropertyWidget *> widgets() const;
    // The widget that holds the column of panels.
    QWidget *mainWidget() const { return mMainWidget; }

    // Fits every panel's labels to the widest of all.
    void synchronizeLabelSizes();
    // The same, after one panel's labels changed.
    void synchronizeLabelSizes(PropertyWidget *widget);

signals:
    void signalPropertyChanged();

public slots:
    void anyPropertyChanged();

private:
    QWidget *mMainWidget = nullptr;
    QVBoxLayout *mColumn = nullptr;
    QList<QPointer<PropertyWidget>> mWidgets;
};

} // namespace TavoLib
