#pragma once

// A text value, on one line or several, with optional bounds on its length, an input mask,
// a menu of ready-made texts (predefines) and a live example of the present value.
#include "core/Property.h"

#include <QList>

namespace TavoLib {

class TAVOLIBCORE_EXPORT StringProperty : public Property
{
public:
    using Ptr = TAutoPtr<StringProperty>;

    // One entry of the predefines menu: an entry inserts `value`; an entry with sub-items is
    // a submenu; a section has a title and no value; a separator has neither.
    struct TAVOLIBCORE_EXPORT PredefineItem
    {
        QString text;
        QString value;
        QList<PredefineItem> subItems;

        PredefineItem() = default;
        PredefineItem(const QString &text, const QString &value,
                      const QList<PredefineItem> &subItems = {});
        static PredefineItem section(const QString &title);
        static PredefineItem separator();

        bool hasSubItems() const { return !subItems.isEmpty(); }
        bool isSection() const { return !text.isEmpty() && value.isEmpty() && subItems.isEmpty(); }
        bool isSeparator() const { return text.isEmpty() && value.isEmpty() && subItems.isEmpty(); }
    };

    // Gives the text of a live preview of a string property's present value.
    class TAVOLIBCORE_EXPORT ExampleController : public MAutoObj
    {
    public:
        using Ptr = TAutoPtr<ExampleController>;
        ~ExampleController() override;
        virtual QString example(TAutoPtr<StringProperty const> property) const = 0;
    };

    StringProperty(const QString &uniqueName, const QString &visibleName,
                   const QString &value = QString());

    QString value() const { return mValue; }
    void setValue(const QString &value) { mValue = value; }

    bool multiLine() const { return mMultiLine; }
    void setMultiLine(bool multiLine) { mMultiLine = multiLine; }
    bool isLabelVisible() const { return mLabelVisible; }
    void setLabelVisible(bool visible) { mLabelVisible = visible; }
    int minimumLength() const { return mMinimumLength; }
    int maximumLength() const { return mMaximumLength; }
    void setLengthRange(int minimum, int maximum);
    QString placeholderText() const { return mPlaceholderText; }
    void setPlaceholderText(const QString &text) { mPlaceholderText = text; }
    QString inputMask() const { return mInputMask; }
    void setInputMask(const QString &mask) { mInputMask = mask; }
    int minimumControlWidth() const { return mMinimumControlWidth; }
    void setMinimumControlWidth(int width) { mMinimumControlWidth = width; }

    const QList<PredefineItem> &predefines() const { return mPredefines; }
    void setPredefines(const QList<PredefineItem> &items) { mPredefines = items; }
    QIcon predefinesIcon() const { return mPredefinesIcon; }
    void setPredefinesIcon(const QIcon &icon) { mPredefinesIcon = icon; }

    TAutoPtr<ExampleController> exampleController() const { return mExampleController; }
    void setExampleController(TAutoPtr<ExampleController> controller)
    {
        mExampleController = controller;
    }

    const char *kindName() const override { return "String"; }
    QString valueText() const override;
    TAutoPtr<Property> clone() const override;
    void copyValueFrom(const Property &other) override;

protected:
    QString valueString() const override;

private:
    QString mValue;
    bool mMultiLine = false;
    bool mLabelVisible = true;
    int mMinimumLength = 0;
    int mMaximumLength = 32767;
    QString mPlaceholderText;
    QString mInputMask;
    int mMinimumControlWidth = 0;
    QList<PredefineItem> mPredefines;
    QIcon mPredefinesIcon;
    TAutoPtr<ExampleController> mExampleController;
};

} // namespace TavoLib
