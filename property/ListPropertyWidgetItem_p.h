#pragma once

// One element of a long list in ListPropertyWidget's view: a row whose cells are the
// element's properties (the children of a group element, else the element itself). The
// cells read their values from the properties whenever the view asks, so a row never shows
// a stale copy. Internal to the library.
#include "core/Property.h"

#include <QTreeWidgetItem>

namespace TavoLib {

class ListPropertyWidgetItem : public QTreeWidgetItem
{
public:
    // The role under which a cell gives its property, as a Property::Ptr.
    static constexpr int PropertyRole = Qt::UserRole + 1;

    // `columns`: the element is a group whose children are the cells.
    ListPropertyWidgetItem(TAutoPtr<Property> element, bool columns);

    TAutoPtr<Property> element() const { return mElement; }
    // The property shown in `column`, or null.
    TAutoPtr<Property> cell(int column) const;

    // The value as text (empty while undefined), a colour as the decoration, the property.
    QVariant data(int column, int role) const override;

private:
    TAutoPtr<Property> mElement;
    bool mColumns;
};

} // namespace TavoLib
