#pragma once

// A choice of one item out of a list of identified items, each with a name and an icon.
// mode() says how editors present the choice; iconSize() sizes the icon of a menu button.
#include "core/Property.h"

#include <QMap>
#include <list>

namespace TavoLib {

class TAVOLIBCORE_EXPORT SelectorProperty : public Property
{
public:
    using Ptr = TAutoPtr<SelectorProperty>;

    enum Mode { ComboBoxMode = 0, ButtonsMode = 1, MenuButtonMode = 2 };
    // Side of a menu button's icon: keep the style's, 12, 16 or 32 pixels.
    enum IconSize { IconSizeDefault = 0, IconSizeSmall = 1, IconSizeMedium = 2, IconSizeLarge = 3 };

    SelectorProperty(const QString &uniqueName, const QString &visibleName, Mode mode = ComboBoxMode);

    Mode mode() const { return mMode; }
    void setMode(Mode mode) { mMode = mode; }
    IconSize iconSize() const { return mIconSize; }
    void setIconSize(IconSize size) { mIconSize = size; }

    // Appends an item; an id given twice keeps its place and takes the new name and icon.
    void addItem(int id, const QString &name, const QIcon &icon = QIcon());
    std::list<int>::const_iterator begin() const { return mIds.begin(); }
    std::list<int>::const_iterator end() const { return mIds.end(); }
    int itemCount() const { return int(mIds.size()); }
    bool hasItem(int id) const { return mItems.contains(id); }
    QString itemName(int id) const;
    QIcon itemIcon(int id) const;

    int value() const { return mValue; }
    // Selects the item; false, and no change, for an unknown id.
    bool setValue(int id);

    bool isFirstItemVisible() const { return mFirstItemVisible; }
    void setFirstItemVisible(bool visible) { mFirstItemVisible = visible; }
    QString undefinedIconName() const { return mUndefinedIconName; }
    void setUndefinedIconName(const QString &name) { mUndefinedIconName = name; }

    const char *kindName() const override { return "Selector"; }
    QString valueText() const override;
    TAutoPtr<Property> clone() const override;
    void copyValueFrom(const Property &other) override;

protected:
    QString valueString() const override;

private:
    struct Item
    {
        QString name;
        QIcon icon;
    };
    Mode mMode;
    IconSize mIconSize = IconSizeMedium;
    std::list<int> mIds;
    QMap<int, Item> mItems;
    int mValue = 0;
    bool mFirstItemVisible = true;
    QString mUndefinedIconName;
};

} // namespace TavoLib
