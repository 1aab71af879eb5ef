// Property editors: building, showing and destroying the editors of 10, 100 and 1,000 mixed
// properties (the kinds of the sample schema in proportion) through the factory, against the
// floor, the same plain Qt widgets built directly (a QSpinBox for an integer, a QComboBox
// with the same items for a selector, ...). Also applyPropertyValues over 100 shown editors.
// Also a list of 500 elements shown as rows of editors and as a view.
// Counters: "props" is the number of properties.
#include "WidgetBenchMain.h"
#include "core/ActivatableGroupProperty.h"
#include "core/BoolProperty.h"
#include "core/BrushProperty.h"
#include "core/CustomColorProperty.h"
#include "core/FontProperty.h"
#include "core/IntegerProperty.h"
#include "core/LineHeadStyleProperty.h"
#include "core/PenStyleProperty.h"
#include "core/StylesheetProperty.h"
#include "core/UnitValueProperty.h"
#include "core/Environment.h"
#include "core/ExtendedSelectorProperty.h"
#include "core/FontSizeProperty.h"
#include "core/GroupProperty.h"
#include "core/ListProperty.h"
#include "core/SelectorProperty.h"
#include "core/StringProperty.h"
#include "core/UnitValueSelectorProperty.h"
#include "pickers/BrushControllerQt.h"
#include "pickers/FontControllerQt.h"
#include "pickers/LineHeadStyleControllerQt.h"
#include "pickers/PenStyleControllerQt.h"
#include "property/ListPropertyWidget.h"
#include "property/PropertyEditorFactory.h"
#include "sample/SampleSchema.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QFrame>
#include <QLabel>
#include <QLineEdit>
#include <QSpinBox>
#include <QTextEdit>
#include <QToolButton>
#include <QVBoxLayout>
#include <benchmark/benchmark.h>

using namespace TavoLib;

namespace {

struct Providers
{
    TAutoPtr<Environment> env{ new Environment };
    TAutoPtr<BrushProviderQt const> brushes{ env->brushProvider() };
    TAutoPtr<FontProviderQt const> fonts{ env->fontProvider() };
    TAutoPtr<PenStyleProviderQt const> pens{ env->penStyleProvider() };
    TAutoPtr<LineHeadStyleProviderQt const> heads{ env->lineHeadStyleProvider() };
    TAutoPtr<StylesheetManager const> stylesheets{ Sample::SampleSchema::makeStylesheets() };
};

Providers &providers()
{
    static Providers p;
    return p;
}

// The leaves and editable groups of the sample schema, cycled to n properties with unique
// names.
std::vector<Property::Ptr> mixed(int n)
{
    std::vector<Property::Ptr> pool;
    std::function<void(const Property::Ptr &)> visit = [&](const Property::Ptr &p) {
        TAutoPtr<GroupProperty> group{ p };
        const bool plainGroup = group && !TAutoPtr<ActivatableGroupProperty>{ p }
            && !TAutoPtr<ExtendedSelectorProperty>{ p };
        if (!plainGroup)
            pool.push_back(p);
        if (group && plainGroup)
            for (const auto &child : *group)
                visit(child);
    };
    for (const auto &p : Sample::SampleSchema::allSchemas(providers().stylesheets))
        visit(p);
    std::vector<Property::Ptr> result;
    for (int i = 0; i < n; ++i) {
        Property::Ptr p = pool[size_t(i) % pool.size()]->clone();
        p->setUniqueName(QStringLiteral("p%1").arg(i));
        result.push_back(p);
    }
    return result;
}

void setUp(PropertyEditorFactory &factory)
{
    Providers &p = providers();
    factory.setBrushProvider(p.brushes);
    factory.setFontProvider(p.fonts);
    factory.setPenStyleProvider(p.pens);
    factory.setLineHeadStyleProvider(p.heads);
    factory.setStylesheetManager(p.stylesheets);
}

// The plain Qt widget a host would write by hand for the property.
QWidget *plainWidget(const Property::Ptr &property, QWidget *parent)
{
    Providers &p = providers();
    if (TAutoPtr<IntegerProperty> integer{ property }) {
        auto *spin = new QSpinBox(parent);
        spin->setRange(integer->minimum(), integer->maximum());
        spin->setValue(integer->value());
        return spin;
    }
    if (TAutoPtr<StringProperty> string{ property }) {
        if (string->multiLine())
            return new QTextEdit(string->value(), parent);
        return new QLineEdit(string->value(), parent);
    }
    if (TAutoPtr<SelectorProperty> selector{ property }) {
        auto *combo = new QComboBox(parent);
        for (int id : *selector)
            combo->addItem(selector->itemIcon(id), selector->itemName(id), id);
        return combo;
    }
    if (TAutoPtr<ExtendedSelectorProperty> extended{ property }) {
        auto *combo = new QComboBox(parent);
        for (const auto &child : *extended)
            combo->addItem(child->visibleName(), child->uniqueName());
        return combo;
    }
    if (TAutoPtr<StylesheetProperty>{ property }) {
        auto *combo = new QComboBox(parent);
        combo->addItem(QStringLiteral("None"));
        for (const auto &sheet : p.stylesheets->stylesheetsWithType(
                 TAutoPtr<StylesheetProperty>{ property }->stylesheetType()))
            combo->addItem(sheet->displayText(), sheet->name());
        return combo;
    }
    if (TAutoPtr<ActivatableGroupProperty>{ property } || TAutoPtr<BoolProperty>{ property })
        return new QCheckBox(parent);
    if (TAutoPtr<ListProperty> list{ property }) {
        auto *spin = new QSpinBox(parent);
        spin->setValue(list->size());
        return spin;
    }
    if (TAutoPtr<CustomColorProperty>{ property }) {
        auto *frame = new QFrame(parent);
        frame->setFrameStyle(QFrame::StyledPanel);
        return frame;
    }
    if (TAutoPtr<BrushProperty> brush{ property }) {
        auto *combo = new QComboBox(parent);
        BrushControllerQt(p.brushes).populate(combo, brush->onlyColors(), brush->brush());
        return combo;
    }
    if (TAutoPtr<PenStyleProperty> pen{ property }) {
        auto *combo = new QComboBox(parent);
        PenStyleControllerQt(p.pens).populate(combo, pen->penStyle());
        return combo;
    }
    if (TAutoPtr<LineHeadStyleProperty> head{ property }) {
        auto *combo = new QComboBox(parent);
        LineHeadStyleControllerQt(p.heads).populate(head->isAtLineEnd(), combo, head->style());
        return combo;
    }
    if (TAutoPtr<FontProperty> font{ property }) {
        auto *row = new QWidget(parent);
        auto *layout = new QHBoxLayout(row);
        auto *family = new QComboBox(row);
        auto *style = new QComboBox(row);
        FontControllerQt(p.fonts).populateFamilies(family, font->font(), false);
        FontControllerQt(p.fonts).populateStyles(style, font->font());
        layout->addWidget(family);
        layout->addWidget(style);
        return row;
    }
    if (TAutoPtr<FontSizeProperty> size{ property }) {
        auto *row = new QWidget(parent);
        auto *layout = new QHBoxLayout(row);
        layout->addWidget(new QLineEdit(size->valueText(), row));
        auto *reference = new QComboBox(row);
        reference->addItems({ QStringLiteral("Ascent Height"), QStringLiteral("Cap Height") });
        layout->addWidget(reference);
        return row;
    }
    if (TAutoPtr<UnitValueProperty> measure{ property }) {
        auto *spin = new QDoubleSpinBox(parent);
        spin->setRange(measure->minimum(), measure->maximum());
        spin->setValue(measure->value().value());
        return spin;
    }
    if (TAutoPtr<UnitValueSelectorProperty> measures{ property }) {
        auto *row = new QWidget(parent);
        auto *layout = new QHBoxLayout(row);
        layout->addWidget(new QDoubleSpinBox(row));
        auto *combo = new QComboBox(row);
        for (int id : *measures)
            combo->addItem(measures->itemName(id), id);
        layout->addWidget(combo);
        return row;
    }
    return nullptr;
}

template<class Make>
void buildShowDestroy(benchmark::State &state, Make make)
{
    const std::vector<Property::Ptr> properties = mixed(int(state.range(0)));
    for (auto _ : state) {
        auto *form = new QWidget;
        auto *layout = new QVBoxLayout(form);
        for (const Property::Ptr &p : properties)
            if (QWidget *editor = make(p, form))
                layout->addWidget(editor);
        form->show();
        QApplication::processEvents();
        delete form;
    }
    state.counters["props"] = double(state.range(0));
}

void BM_FactoryEditors(benchmark::State &state)
{
    PropertyEditorFactory factory;
    setUp(factory);
    buildShowDestroy(state, [&](const Property::Ptr &p, QWidget *parent) {
        return factory.createEditor(p, parent, QString());
    });
}

void BM_PlainQtWidgets(benchmark::State &state)
{
    buildShowDestroy(state, plainWidget);
}

void BM_ApplyPropertyValues100(benchmark::State &state)
{
    PropertyEditorFactory factory;
    setUp(factory);
    const std::vector<Property::Ptr> properties = mixed(100);
    QWidget form;
    auto *layout = new QVBoxLayout(&form);
    for (const Property::Ptr &p : properties)
        if (QWidget *editor = factory.createEditor(p, &form, QString()))
            layout->addWidget(editor);
    form.show();
    QApplication::processEvents();
    // Fresh objects of every property: with argument 1 alternately defined and undefined,
    // so that blank rows come and go; with 0 always defined (a reload of other objects).
    const bool toggle = state.range(0) == 1;
    std::vector<std::vector<Property::Ptr>> rounds(2);
    for (int r = 0; r < 2; ++r)
        for (const Property::Ptr &p : properties) {
            Property::Ptr copy = p->clone();
            copy->setUndefinable(true);
            copy->setUndefined(toggle && r == 1);
            rounds[size_t(r)].push_back(copy);
        }
    int r = 0;
    for (auto _ : state) {
        for (const Property::Ptr &p : rounds[size_t(r)])
            factory.applyPropertyValues(p);
        r = 1 - r;
    }
    state.counters["props"] = 100;
    state.counters["toggle"] = toggle ? 1 : 0;
}

// setValues and show of a list of 500 two-column elements (a length and a number), as rows of
// live editors (argument 0) or as the view with one editor on demand (argument 1).
void BM_ListWidget500(benchmark::State &state)
{
    PropertyDictionary columns;
    columns.insertProperty(new UnitValueProperty(QStringLiteral("position"),
        QStringLiteral("Position"), UnitValue(10, CUnit::MM), CUnit::MM, 0, 5000, 2));
    columns.insertProperty(
        new IntegerProperty(QStringLiteral("count"), QStringLiteral("Count"), 1, 0, 99));
    ListProperty::Ptr list(new ListProperty(QStringLiteral("stops"), QStringLiteral("Stops"),
        new GroupProperty(QStringLiteral("stop"), QStringLiteral("Stop"), columns), 0, 1000));
    for (int i = 0; i < 500; ++i)
        list->insertProperty(i);
    const bool view = state.range(0) == 1;
    for (auto _ : state) {
        auto *widget = new ListPropertyWidget;
        setUp(*widget->factory());
        widget->setViewThreshold(view ? 50 : 1000);
        widget->setValues(list);
        widget->show();
        QApplication::processEvents();
        delete widget;
    }
    state.counters["elements"] = 500;
    state.counters["view"] = view ? 1 : 0;
}

} // namespace

BENCHMARK(BM_FactoryEditors)->Arg(10)->Arg(100)->Arg(1000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_PlainQtWidgets)->Arg(10)->Arg(100)->Arg(1000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ApplyPropertyValues100)->Arg(0)->Arg(1)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_ListWidget500)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

TAVO_WIDGET_BENCHMARK_MAIN()
