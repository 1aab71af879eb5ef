#include "core/Property.h"

#include <atomic>

namespace TavoLib {

namespace {
std::atomic<quint64> sRenames{ 0 };
} // namespace

void Property::setUniqueName(const QString &name)
{
    mUniqueName = name;
    if (mNameIndexed)
        ++sRenames;
}

quint64 Property::renameStamp()
{
    return sRenames.load(std::memory_order_relaxed);
}

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

namespace {

// Marks an undefined value inside toString(): an en dash, which no plain value text starts
// with unquoted.
const QChar kUndefinedMark(0x2013);

bool quoteWrapped(const QString &text)
{
    return text.size() >= 2 && text.startsWith(QLatin1Char('"')) && text.endsWith(QLatin1Char('"'));
}

} // namespace

QString Property::toString() const
{
    if (valueCountsWhenUndefined()) {
        const QString text = valueString();
        return mUndefined ? kUndefinedMark + (QLatin1Char('(') + text + QLatin1Char(')')) : text;
    }
    if (mUndefined)
        return QString(kUndefinedMark);
    // A value that looks like the undefined mark or like a quoted text is quoted itself, so
    // that the reading stays unambiguous; every other text stands as the user reads it.
    const QString text = valueString();
    return text.startsWith(kUndefinedMark) || quoteWrapped(text) ? quoted(text) : text;
}

QString Property::summaryItem(const QString &text)
{
    const bool misreadable = text.isEmpty() || text.startsWith(kUndefinedMark)
        || text.contains(QLatin1Char('"')) || text.contains(QLatin1Char('('))
        || text.contains(QLatin1Char(')')) || text.contains(QLatin1String(", "));
    return misreadable ? quoted(text) : text;
}

QString Property::summary(
    const std::vector<TAutoPtr<Property>> &children, const QStringList &leading)
{
    QStringList parts = leading;
    for (const TAutoPtr<Property> &child : children) {
        if (child->valueCountsWhenUndefined()) {
            const QString text = child->toString();
            parts << (child->isUndefined() ? text : QLatin1Char('(') + text + QLatin1Char(')'));
        } else if (child->isUndefined()) {
            parts << QString(kUndefinedMark);
        } else if (qstrcmp(child->kindName(), "Property") != 0) {
            parts << summaryItem(child->valueString());
        }
    }
    return parts.join(QLatin1String(", "));
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

bool Property::reaches(const PropertyDictionary *) const
{
    return false;
}

bool Property::anyReaches(
    const std::vector<TAutoPtr<Property>> &children, const PropertyDictionary *dictionary)
{
    for (const TAutoPtr<Property> &child : children) {
        if (child->reaches(dictionary))
            return true;
    }
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
