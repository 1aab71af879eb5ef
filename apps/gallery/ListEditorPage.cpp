// Gallery page "List editor": the editor of a list property twice, a short list of tab stops
// as rows of live editors and a long one (300 stops) as a view whose one editor is made when
// a cell is edited (F2, Return, typing or a double click; Escape drops the edit). Each stop
// has a position, an alignment, a fill and a colour. The line at the bottom tells the last
// propertiesChanged and the size of the list.
#include "GalleryPage.h"

#include "core/BrushProperty.h"
#include "core/CustomColorProperty.h"
#include "core/Environment.h"
#include "core/GroupProperty.h"
#include "core/ListProperty.h"
#include "core/SelectorProperty.h"
#include "core/UnitValueProperty.h"
#include "property/ListPropertyWidget.h"
#include "sample/SampleSchema.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QTreeWidget>
#include <QVBoxLayout>

using namespace TavoLib;

namespace {

ListProperty::Ptr tabStops(int count)
{
    PropertyDictionary stop;
    stop.insertProperty(new UnitValueProperty(QStringLiteral("position"),
        QStringLiteral("Position"), UnitValue(10, CUnit::MM), CUnit::MM, 0, 5000, 2));
    SelectorProperty::Ptr align(
        new SelectorProperty(QStringLiteral("align"), QStringLiteral("Alignment")));
    align->addItem(0, QStringLiteral("Left"));
    align->addItem(1, QStringLiteral("Centre"));
    align->addItem(2, QStringLiteral("Right"));
    align->addItem(3, QStringLiteral("Decimal"));
    align->setValue(0);
    stop.insertProperty(align);
    stop.insertProperty(new BrushProperty(QStringLiteral("leader"), QStringLiteral("Fill"), 0));
    stop.insertProperty(
        new CustomColorProperty(QStringLiteral("colour"), QStringLiteral("Colour"), 0.2, 0.4, 0.8));
    ListProperty::Ptr list(new ListProperty(QStringLiteral("tabs"), QStringLiteral("Tab stops"),
        new GroupProperty(QStringLiteral("stop"), QStringLiteral("Stop"), stop), 0, 1000));
    for (int i = 0; i < count; ++i) {
        TAutoPtr<GroupProperty> element(list->insertProperty(i));
        TAutoPtr<UnitValueProperty>(element->property(QStringLiteral("position")))
            ->setValue(UnitValue(12.5 * (i + 1), CUnit::MM));
        TAutoPtr<SelectorProperty>(element->property(QStringLiteral("align")))->setValue(i % 4);
        TAutoPtr<BrushProperty>(element->property(QStringLiteral("leader")))
            ->setBrush(short(1 + i % 6));
        TAutoPtr<CustomColorProperty>(element->property(QStringLiteral("colour")))
            ->setRgb((i % 5) / 4.0, (i % 3) / 2.0, 0.6);
    }
    return list;
}

QWidget *listBox(
    const QString &title, ListProperty::Ptr list, TAutoPtr<Environment> env, QLabel *log)
{
    auto *box = new QGroupBox(title);
    auto *layout = new QVBoxLayout(box);
    auto *widget = new ListPropertyWidget(box);
    widget->setObjectName(
        list->size() > widget->viewThreshold() ? QStringLiteral("long") : QStringLiteral("short"));
    widget->setStylesheetManager(Sample::SampleSchema::makeStylesheets());
    widget->setBrushProvider(TAutoPtr<BrushProviderQt const>(env->brushProvider()));
    widget->setPenStyleProvider(TAutoPtr<PenStyleProviderQt const>(env->penStyleProvider()));
    widget->setLineHeadStyleProvider(
        TAutoPtr<LineHeadStyleProviderQt const>(env->lineHeadStyleProvider()));
    widget->setFontProvider(TAutoPtr<FontProviderQt const>(env->fontProvider()));
    widget->setTranslator(Translator::defaultTranslator());
    widget->setValues(list);
    QObject::connect(widget, &ListPropertyWidget::propertiesChanged, log, [log, title, list] {
        log->setText(QObject::tr("propertiesChanged: %1, %2 entries").arg(title).arg(list->size()));
    });
    // The view of a long list takes the height there is; rows stand at the top.
    const bool view = list->size() > widget->viewThreshold();
    layout->addWidget(widget, view ? 1 : 0);
    if (!view)
        layout->addStretch(1);
    return box;
}

QWidget *makeListEditorPage()
{
    auto *page = new QWidget;
    auto *layout = new QVBoxLayout(page);
    TAutoPtr<Environment> env(new Environment);
    auto *log = new QLabel(QObject::tr("Edit an entry: the change is told here."));
    auto *lists = new QHBoxLayout;
    lists->addWidget(listBox(QObject::tr("Short list (rows)"), tabStops(3), env, log), 1);
    lists->addWidget(listBox(QObject::tr("Long list (view)"), tabStops(300), env, log), 1);
    layout->addLayout(lists, 1);
    layout->addWidget(log);
    return page;
}

// The long list shows the editor of one cell, as after F2.
void openCellEditor(QWidget *page)
{
    auto *long_ = page->findChild<ListPropertyWidget *>(QStringLiteral("long"));
    auto *view = long_ ? long_->findChild<QTreeWidget *>(QStringLiteral("entries")) : nullptr;
    if (!view)
        return;
    view->setFocus();
    view->setCurrentItem(view->topLevelItem(2), 1);
    view->edit(view->currentIndex());
}

} // namespace

TAVO_GALLERY_PAGE_EX(21, "List editor", makeListEditorPage, openCellEditor, nullptr)
