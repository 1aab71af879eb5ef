#include "core/Property.h"

namespace TavoLib {

Property::Property(const QString &uniqueName, const QString &visibleName)
    : mUniqueName(uniqueName), mVisibleName(visibleName)
{
}

Property::Property(const Property &other)
    : StreamableObject(other),
      mUniqueName(other.mUniqueName),
      mVisibleName(other.mVisibleName),
      mIconName(other.mIconName),
      mIcon(other.mIcon),
      mUndefined(other.mUndefined),
      mUndefinable(other.mUndefinable),
      mReadOnly(other.mReadOnly),
      mAllowColorizeIcon(other.mAllowColorizeIcon)
{
}

Property::~Property() = default;

QString Property::toString() const
{
    if (mUndefined && !valueCountsWhenUndefined())
        return QStringLiteral("U");
    return (mUndefined ? QStringLiteral("U:") : QStringLiteral("D:")) + valueString();
}

void Property::intersect(TAutoPtr<Property const> other)
{
    if (!other || qstrcmp(other->kindName(), kindName()) != 0) {
        setUndefined(true);
        return;
    }
    if (other.get() == this)
        return;
    intersectValue(*other);
}

const char *Property::kindName() const
{
    return "Property";
}

QString Property::valueString() const
{
    return QString();
}

bool Property::valueCountsWhenUndefined() const
{
    return false;
}

void Property::intersectValue(const Property &other)
{
    if (other.isUndefined() || other.valueString() != valueString())
        setUndefined(true);
}

QString Property::quoted(const QString &text)
{
    QString out;
    out.reserve(text.size() + 2);
    out += QLatin1Char('"');
    for (const QChar c : text) {
        if (c == QLatin1Char('"') || c == QLatin1Char('\\'))
            out += QLatin1Char('\\');
        out += c;
    }
    out += QLatin1Char('"');
    return out;
}

void Property::setUndefined(bool undefined)
{
    mUndefined = undefined;
}

QString Property::valueText() const
{
    return QString();
}

QString Property::iconName() const
{
    return mIconName;
}

TAutoPtr<Property> Property::clone() const
{
    return new Property(*this);
}

void Property::copyValueFrom(const Property &other)
{
    mUndefined = other.mUndefined;
}

int registerPropertyMetaType()
{
    static const int id = qRegisterMetaType<Property::Ptr>("TavoLib::Property::Ptr");
    return id;
}

namespace {
const int kPropertyMetaType = registerPropertyMetaType();
}

} // namespace TavoLib
