#pragma once

// The panel a host drops into a window to edit objects: loadValues shows an object's
// properties as form rows, propertyChanged reports each edit, storeValues writes back into
// the objects that were loaded what the user changed, and only into those. Optionally in a
// scroll area and a group box.
#include "browser/PropertyWidget.h"
#include "core/Environment.h"

namespace TavoLib {

class TAVOLIBGUI_EXPORT PropertyEditorWidget : public QWidget
{
    Q_OBJECT
public:
    explicit PropertyEditorWidget(QWidget *parent = nullptr, Qt::WindowFlags flags = Qt::WindowFlags());
    PropertyEditorWidget(bool withScrollArea, bool withGroupBox, bool liveStringUpdates,
        QWidget *parent = nullptr);
    ~PropertyEditorWidget() override;

    void loadValues(TAutoPtr<const PropertyableObject> object, TAutoPtr<Environment> environment);
    void loadValues(TAutoPtr<const PropertyableObject> object,
        TAutoPtr<const PropertyDictionary> dictionary, TAutoPtr<Environment> environment);
    // Each object gets rows of its own; they are not merged.
    void loadValues(const std::list<TAutoPtr<const PropertyableObject>> &objects,
        TAutoPtr<Environment> environment);
    void loadValues(TAutoPtr<const PropertyableObject> object, TAutoPtr<FontProvider> fonts,
        TAutoPtr<BrushProvider> brushes, TAutoPtr<PenStyleProvider> pens,
        TAutoPtr<LineHeadStyleProvider> heads);
    void loadValues(TAutoPtr<const PropertyableObject> object,
        TAutoPtr<const PropertyDictionary> dictionary, TAutoPtr<FontProvider> fonts,
        TAutoPtr<BrushProvider> brushes, TAutoPtr<PenStyleProvider> pens,
        TAutoPtr<LineHeadStyleProvider> heads);

    // Writes the changed values into those of `objects` that were loaded (the same
    // objects, not copies); unchanged objects are not touched.
    void storeValues(TAutoPtr<PropertyableObject> object);
    void storeValues(const std::list<TAutoPtr<PropertyableObject>> &objects);
    // The rows take over the object's present values, without a propertyChanged echo.
    void changeValues(TAutoPtr<PropertyableObject> object);

    // Passes the environment's providers on, once per environment.
    void setEnvironment(TAutoPtr<Environment> environment);
    int maxLabelWidth() const;
    void setMaxLabelWidth(int width);
    PropertyWidget *propertyWidget() const { return mPropertyWidget; }

signals:
    void propertyChanged();
    void propertyChanged(TavoLib::Property::Ptr property);

private:
    void init(bool withScrollArea, bool withGroupBox, bool liveStringUpdates);

    PropertyWidget *mPropertyWidget = nullptr;
    TAutoPtr<PropertyDictionary> mDictionary;
    TAutoPtr<Environment> mEnvironment;
};

} // namespace TavoLib
