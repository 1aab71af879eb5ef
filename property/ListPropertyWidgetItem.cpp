#include "property/ListPropertyWidgetItem_p.h"

#include "core/CustomColorProperty.h"
#include "core/GroupProperty.h"

#include <QColor>

namespace TavoLib {

ListPropertyWidgetItem::ListPropertyWidgetItem(TAutoPtr<Property> element, bool columns)
    : QTreeWidgetItem(UserType), mElement(element), mColumns(columns)
{
    setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsEditable);
}

TAutoPtr<Property> ListPropertyWidgetItem::cell(int column) const
{
    if (!mColumns)
        return column == 0 ? mElement : TAutoPtr<Property>();
    const TAutoPtr<GroupProperty> group(mElement);
    if (!group || column < 0)
        return TAutoPtr<Property>();
    int i = 0;
    for (const auto &child : *group)
        if (i++ == column)
            return child;
    return TAutoPtr<Property>();
}

QVariant ListPropertyWidgetItem::data(int column, int role) const
{
    switch (role) {
    case Qt::DisplayRole:
    case Qt::AccessibleTextRole: {
        const TAutoPtr<Property> property = cell(column);
        return property && property->isDefined() ? property->valueText() : QString();
    }
    case Qt::DecorationRole: {
        const TAutoPtr<CustomColorProperty> color(cell(column));
        if (color && color->isDefined())
            return QColor::fromRgbF(color->red(), color->green(), color->blue());
        return QVariant();
    }
    case PropertyRole:
        return QVariant::fromValue(cell(column));
    default:
        return QTreeWidgetItem::data(column, role);
    }
}

} // namespace TavoLib
