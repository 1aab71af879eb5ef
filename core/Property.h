#pragma once

// Property is one typed, editable value of an object: the unit the whole library edits.
// A property has a stable uniqueName (its row identity across reloads), an untranslated
// visibleName, and a defined or undefined state. Undefined means that no value can be shown:
// nothing was set, or several edited objects differ. Kinds derive from Property and are told
// apart by a checked cast: TAutoPtr<IntegerProperty>(property) is null for other kinds.
//
// toString() is the value as a user reads it ("12.5mm", "Yes", "Bold", "#ff8000"), and at the
// same time the canonical text of the value: two properties of one kind give equal texts
// exactly when their values and defined states are equal. A group or list gives a short
// summary of its children ("12mm, Bold, (2, Left)") that changes whenever a child's value or
// defined state does. valueText() is the display form for editors.
#include "core/StreamableObject.h"

#include <QIcon>
#include <QMetaType>
#include <QString>
#include <QStringList>

#include <vector>

namespace TavoLib {

class PropertyDictionary;

class TAVOLIBCORE_EXPORT Property : public StreamableObject
{
public:
    using Ptr = TAutoPtr<Property>;
    using ConstPtr = TAutoPtr<Property const>;

    Property(const QString &uniqueName, const QString &visibleName);
    Property(const Property &other);
    ~Property() override;

    QString uniqueName() const { return mUniqueName; }
    void setUniqueName(const QString &name);
    // Counts the renames of properties that a dictionary's name index holds; such an index is
    // rebuilt after one.
    static quint64 renameStamp();
    QString visibleName() const { return mVisibleName; }
    void setVisibleName(const QString &name) { mVisibleName = name; }

    QString toString() const;

    QIcon icon() const { return mIcon; }
    void setIcon(const QIcon &icon) { mIcon = icon; }
    bool allowColorizeIcon() const { return mAllowColorizeIcon; }
    void setAllowColorizeIcon(bool allow) { mAllowColorizeIcon = allow; }

    bool isDefined() const { return !mUndefined; }
    bool isUndefined() const { return mUndefined; }
    bool isUndefinable() const { return mUndefinable; }
    void setUndefinable(bool undefinable) { mUndefinable = undefinable; }
    bool readOnly() const { return mReadOnly; }
    void setReadOnly(bool readOnly) { mReadOnly = readOnly; }

    // Merges `other` into this property for a multiple selection: what agrees stays, what
    // differs becomes undefined. A null `other`, or one of another kind, makes this undefined.
    void intersect(TAutoPtr<Property const> other);

    // The kind's name, as used by saved documents and diagnostics ("Integer", "Group", ...).
    virtual const char *kindName() const;

protected:
    // The readable text of the value alone, without the defined state and without the
    // quoting that keeps it apart from the undefined mark.
    virtual QString valueString() const;
    // Whether the value is still part of toString() while undefined (groups and lists are,
    // so that a change below an undefined parent is still seen).
    virtual bool valueCountsWhenUndefined() const;
    // Merges a property of the same kind; the default compares valueString().
    virtual void intersectValue(const Property &other);
    // Whether `dictionary` is this property or lies below it (groups and list elements).
    virtual bool reaches(const PropertyDictionary *dictionary) const;
    // The same, for any of the children of a group or list.
    static bool anyReaches(
        const std::vector<TAutoPtr<Property>> &children, const PropertyDictionary *dictionary);

    // Quotes text with backslash escapes: "a \"b\"".
    static QString quoted(const QString &text);
    // A summary of children for groups and lists: each child's text, joined by ", ".
    // Composite children stand in parentheses; texts that could be misread are quoted; an
    // undefined child shows as the undefined mark; a bare property without a value shows
    // only when undefined.
    static QString summary(const std::vector<TAutoPtr<Property>> &children,
        const QStringList &leading = QStringList());
    // Quotes a child's text for a summary when it could be misread there.
    static QString summaryItem(const QString &text);

public:
    // The virtual operations the editors rely on, in this order.
    virtual void setUndefined(bool undefined);
    virtual QString valueText() const;
    virtual QString iconName() const;
    virtual TAutoPtr<Property> clone() const;
    virtual void copyValueFrom(const Property &other);

    void setIconName(const QString &name) { mIconName = name; }

private:
    friend class PropertyDictionary;
    Property &operator=(const Property &) = delete;

    QString mUniqueName;
    QString mVisibleName;
    QString mIconName;
    QIcon mIcon;
    bool mUndefined = false;
    bool mUndefinable = false;
    // Set once a large dictionary's name index holds this property: only a rename of such a
    // property moves renameStamp(), so a host renaming new properties before inserting them
    // does not make every insert rebuild the index.
    mutable bool mNameIndexed = false;
    bool mReadOnly = false;
    bool mAllowColorizeIcon = true;
};

// Registers Property::Ptr with the meta-type system under its written name, so that it
// travels through queued connections. Done once at load; calling it again is harmless.
TAVOLIBCORE_EXPORT int registerPropertyMetaType();

} // namespace TavoLib

Q_DECLARE_METATYPE(TavoLib::Property::Ptr)
