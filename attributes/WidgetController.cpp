#include "attributes/WidgetController.h"

#include "attributes/StylesheetBasedWidgetGroupWidget.h"

namespace TavoLib {

WidgetController::WidgetController() = default;
WidgetController::WidgetController(const WidgetController &other) = default;
WidgetController &WidgetController::operator=(const WidgetController &other) = default;
WidgetController::~WidgetController() = default;

QString WidgetController::title() const
{
    // A controller without a widget has no title to give.
    return mWidget ? mWidget->windowTitle() : QString();
}

void WidgetController::loadValues()
{
}

bool WidgetController::checkValues() const
{
    return true;
}

void WidgetController::saveValues()
{
}

StylesheetWidgetController::StylesheetWidgetController() = default;

StylesheetWidgetController::StylesheetWidgetController(TAutoPtr<Stylesheet> stylesheet, TAutoPtr<Environment> environment)
    : mStylesheet(stylesheet), mEnvironment(environment)
{
}

void StylesheetWidgetController::setStylesheet(TAutoPtr<Stylesheet> stylesheet, TAutoPtr<Environment> environment)
{
    mStylesheet = stylesheet;
    mEnvironment = environment;
}

QList<AttributeKey> StylesheetWidgetController::attributeKeys() const
{
    if (auto *single = qobject_cast<StylesheetBasedWidget *>(widget()))
        return single->attributeKeys();
    if (auto *group = qobject_cast<StylesheetBasedWidgetGroupWidget *>(widget()))
        return group->attributeKeys();
    return {};
}

void StylesheetWidgetController::loadValues()
{
    if (auto *single = qobject_cast<StylesheetBasedWidget *>(widget()))
        single->loadValues(mStylesheet, mEnvironment);
    else if (auto *group = qobject_cast<StylesheetBasedWidgetGroupWidget *>(widget()))
        group->loadValues(mStylesheet, mEnvironment);
}

bool StylesheetWidgetController::checkValues() const
{
    // kept on purpose: a single panel is not asked (its subclass may check), a group is.
    if (qobject_cast<StylesheetBasedWidget *>(widget()))
        return true;
    if (auto *group = qobject_cast<StylesheetBasedWidgetGroupWidget *>(widget()))
        return group->checkValues();
    return true;
}

void StylesheetWidgetController::saveValues()
{
    if (auto *single = qobject_cast<StylesheetBasedWidget *>(widget()))
        single->saveValues();
    else if (auto *group = qobject_cast<StylesheetBasedWidgetGroupWidget *>(widget()))
        group->saveValues();
}

} // namespace TavoLib
