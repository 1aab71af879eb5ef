#include "core/StringProperty.h"

#include <QtGlobal>

namespace TavoLib {

StringProperty::PredefineItem::PredefineItem(const QString &text, const QString &value,
                                             const QList<PredefineItem> &subItems)
    : text(text), value(value), subItems(subItems)
{
}

StringProperty::PredefineItem StringProperty::PredefineItem::section(const QString &title)
{
    return PredefineItem(title, QString());
}

StringProperty::PredefineItem StringProperty::PredefineItem::separator()
{
    return PredefineItem();
}

StringProperty::ExampleController::~ExampleController() = default;

StringProperty::StringProperty(const QString &uniqueName, const QString &visibleName,
                               const QString &value)
    : Property(uniqueName, visibleName), mValue(value)
{
}

void StringProperty::setLengthRange(int minimum, int maximum)
{
    mMinimumLength = qMax(0, qMin(minimum, maximum));
    mMaximumLength = qMax(mMinimumLength, qMax(minimum, maximum));
}

QString StringProperty::valueText() const
{
    return mValue;
}

TAutoPtr<Property> StringProperty::clone() const
{
    return new StringProperty(*this);
}

void StringProperty::copyValueFrom(const Property &other)
{
    Property::copyValueFrom(other);
    if (auto *o = dynamic_cast<const StringProperty *>(&other))
        mValue = o->mValue;
}

QString StringProperty::valueString() const
{
    return mValue;
}

} // namespace TavoLib
