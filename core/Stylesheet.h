#pragma once

// A named set of attributes of one type ("Paragraph", "Character", "Frame"), shown to the
// user under its display text. A stylesheet may have a parent: attributes(true) gives the
// parent's attributes overlaid with its own, attributes(false) only its own.
#include "core/AttributeDictionary.h"

namespace TavoLib {

class TAVOLIBCORE_EXPORT Stylesheet : public AttributeDictionary
{
public:
    using Ptr = TAutoPtr<Stylesheet>;
    using ConstPtr = TAutoPtr<Stylesheet const>;

    Stylesheet(const QString &type, const QString &name, const QString &displayText = QString(),
               TAutoPtr<Stylesheet const> parent = TAutoPtr<Stylesheet const>());
    ~Stylesheet() override;

    QString name() const { return mName; }
    QString type() const { return mType; }
    // The text shown to the user; the name when none was given.
    QString displayText() const { return mDisplayText.isEmpty() ? mName : mDisplayText; }
    TAutoPtr<Stylesheet const> parent() const { return mParent; }
    // Sets the parent; refused (false) when it would make a cycle.
    bool setParent(TAutoPtr<Stylesheet const> parent);

    AttributeMap attributes(bool inherited) const override;

private:
    QString mType;
    QString mName;
    QString mDisplayText;
    TAutoPtr<Stylesheet const> mParent;
};

} // namespace TavoLib
