#include "browser/PropertyEditorWidget.h"

#include <QHBoxLayout>
#include <QScrollArea>
#include <QVBoxLayout>

namespace TavoLib {

PropertyEditorWidget::PropertyEditorWidget(QWidget *parent, Qt::WindowFlags flags)
    : QWidget(parent, flags)
{
    init(false, false, false);
}

PropertyEditorWidget::PropertyEditorWidget(
    bool withScrollArea, bool withGroupBox, bool liveStringUpdates, QWidget *parent)
    : QWidget(parent)
{
    init(withScrollArea, withGroupBox, liveStringUpdates);
}

PropertyEditorWidget::~PropertyEditorWidget()
{
    // The inner panel goes after this object's own part: its last signals must not be
    // forwarded from here.
    mPropertyWidget->disconnect(this);
}

void PropertyEditorWidget::init(bool withScrollArea, bool withGroupBox, bool liveStringUpdates)
{
    resize(300, 460);
    setMinimumSize(300, 0);
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    QWidget *host = this;
    QBoxLayout *hostLayout = layout;
    QScrollArea *area = nullptr;
    if (withScrollArea) {
        area = new QScrollArea(this);
        layout->addWidget(area);
        auto *content = new QWidget(area);
        auto *column = new QVBoxLayout(content);
        column->setContentsMargins(9, 9, 9, 9);
        host = content;
        hostLayout = column;
    }
    mPropertyWidget = new PropertyWidget(host, QString(), liveStringUpdates);
    hostLayout->addWidget(mPropertyWidget);
    if (withScrollArea) {
        // Short forms stay at the top of the area.
        hostLayout->addItem(new QSpacerItem(10, 0, QSizePolicy::Minimum, QSizePolicy::Expanding));
        area->setWidget(host);
        area->setWidgetResizable(true);
    }
    mPropertyWidget->setWithGroupBox(withGroupBox);
    mPropertyWidget->setTranslator(Translator::defaultTranslator());
    connect(mPropertyWidget, QOverload<>::of(&PropertyWidget::signalPropertyChanged), this,
        QOverload<>::of(&PropertyEditorWidget::propertyChanged));
    connect(mPropertyWidget, QOverload<Property::Ptr>::of(&PropertyWidget::signalPropertyChanged),
        this, QOverload<Property::Ptr>::of(&PropertyEditorWidget::propertyChanged));
}

void PropertyEditorWidget::setEnvironment(TAutoPtr<Environment> environment)
{
    if (environment == mEnvironment)
        return;
    mEnvironment = environment;
    if (!environment)
        return;
    // kept on purpose: the environment's stylesheets too (setProviders hands them on), so that
    // stylesheet rows have their list; it replaces a manager set through propertyWidget().
    mPropertyWidget->setProviders(*environment);
}

void PropertyEditorWidget::loadValues(
    TAutoPtr<const PropertyableObject> object, TAutoPtr<Environment> environment)
{
    TAutoPtr<PropertyDictionary> values(new PropertyDictionary);
    if (object)
        object->fillProperties(*values);
    loadValues(object, values, environment);
}

void PropertyEditorWidget::loadValues(TAutoPtr<const PropertyableObject> object,
    TAutoPtr<const PropertyDictionary> dictionary, TAutoPtr<Environment> environment)
{
    setEnvironment(environment);
    mPropertyWidget->setItems({ new PropertyWidgetItem(object, dictionary) });
}

void PropertyEditorWidget::loadValues(
    const std::list<TAutoPtr<const PropertyableObject>> &objects, TAutoPtr<Environment> environment)
{
    setEnvironment(environment);
    std::list<TAutoPtr<const PropertyWidgetItem>> items;
    for (const auto &object : objects)
        items.push_back(new PropertyWidgetItem(object));
    mPropertyWidget->setItems(items);
}

void PropertyEditorWidget::loadValues(TAutoPtr<const PropertyableObject> object,
    TAutoPtr<FontProvider> fonts, TAutoPtr<BrushProvider> brushes, TAutoPtr<PenStyleProvider> pens,
    TAutoPtr<LineHeadStyleProvider> heads)
{
    TAutoPtr<PropertyDictionary> values(new PropertyDictionary);
    if (object)
        object->fillProperties(*values);
    loadValues(object, values, fonts, brushes, pens, heads);
}

void PropertyEditorWidget::loadValues(TAutoPtr<const PropertyableObject> object,
    TAutoPtr<const PropertyDictionary> dictionary, TAutoPtr<FontProvider> fonts,
    TAutoPtr<BrushProvider> brushes, TAutoPtr<PenStyleProvider> pens,
    TAutoPtr<LineHeadStyleProvider> heads)
{
    mPropertyWidget->setBrushProvider(TAutoPtr<const BrushProviderQt>(brushes));
    mPropertyWidget->setPenStyleProvider(TAutoPtr<const PenStyleProviderQt>(pens));
    mPropertyWidget->setLineHeadStyleProvider(TAutoPtr<const LineHeadStyleProviderQt>(heads));
    mPropertyWidget->setFontProvider(TAutoPtr<const FontProviderQt>(fonts));
    mPropertyWidget->setItems({ new PropertyWidgetItem(object, dictionary) });
}

void PropertyEditorWidget::storeValues(TAutoPtr<PropertyableObject> object)
{
    storeValues(std::list<TAutoPtr<PropertyableObject>>{ object });
}

void PropertyEditorWidget::storeValues(const std::list<TAutoPtr<PropertyableObject>> &objects)
{
    for (const auto &item : mPropertyWidget->changedItems())
        for (const auto &object : objects)
            if (object && item->propertiesOwner().get() == object.get())
                object->applyProperties(*item->properties());
}

void PropertyEditorWidget::changeValues(TAutoPtr<PropertyableObject> object)
{
    if (!object)
        return;
    mPropertyWidget->changeItems({ new PropertyWidgetItem(object) });
}

int PropertyEditorWidget::maxLabelWidth() const
{
    return mPropertyWidget->maxLabelWidth();
}

void PropertyEditorWidget::setMaxLabelWidth(int width)
{
    mPropertyWidget->setMaxLabelWidth(width);
}

} // namespace TavoLib
