#pragma once

// A choice of named modes, each with a measure of its own ("Fixed 12 pt", "Auto 120 %").
// The value is the chosen mode; every mode keeps its own number, range and precision.
#include "core/Property.h"
#include "core/units/UnitValue.h"

#include <QMap>
#include <list>

namespace TavoLib {

class TAVOLIBCORE_EXPORT UnitValueSelectorProperty : public Property
{
public:
    using Ptr = TAutoPtr<UnitValueSelectorProperty>;

    UnitValueSelectorProperty(const QString &uniqueName, const QString &visibleName);

    // Appends a mode; an id given twice keeps its place and takes the new settings.
    void addItem(int id, const QString &name, const UnitValue &value, double minimum,
                 double maximum, int precision);
    std::list<int>::const_iterator begin() const { return mIds.begin(); }
    std::list<int>::const_iterator end() const { return mIds.end(); }
    QString itemName(int id) const;
    UnitValue itemValue(int id) const;
    void setItemValue(int id, const UnitValue &value);
    double itemMinimum(int id) const;
    double itemMaximum(int id) const;
    int itemPrecision(int id) const;

    int value() const { return mValue; }
    // Chooses the mode; unknown ids are ignored.
    void setValue(int id);

    const char *kindName() const override { return "UnitValueSelector"; }
    QString valueText() const override;
    TAutoPtr<Property> clone() const override;
    void copyValueFrom(const Property &other) override;

protected:
    QString valueString() const override;

private:
    struct Item
    {
        QString name;
        UnitValue value;
        double minimum = 0.0;
        double maximum = 0.0;
        int precision = 0;
    };
    std::list<int> mIds;
    QMap<int, Item> mItems;
    int mValue = 0;
};

} // namespace TavoLib
