// Gallery page "Editors": one property of every kind of the sample schema, each made into an
// editor by the real factory over the reference providers. A tab per theme; columns for a
// defined and an undefined value, with and without the editor frame. The line at the bottom
// tells the last propertyChanged and the property's new text.
#include "GalleryPage.h"

#include "core/Environment.h"
#include "core/GroupProperty.h"
#include "property/PropertyEditorFactory.h"
#include "sample/SampleSchema.h"
#include "style/Device.h"

#include <QGridLayout>
#include <QLabel>
#include <QScrollArea>
#include <QTabWidget>
#include <QTextEdit>
#include <QVBoxLayout>
#include <map>

using namespace TavoLib;

namespace {

// The first property of each kind in the sample schema, children of groups included, in
// the order the factory tries the kinds.
std::vector<Property::Ptr> oneOfEachKind(TAutoPtr<StylesheetManager const> stylesheets)
{
    std::map<QString, Property::Ptr> byKind;
    std::function<void(const Property::Ptr &)> visit = [&](const Property::Ptr &p) {
        if (!p)
            return;
        byKind.emplace(QString::fromLatin1(p->kindName()), p);
        if (TAutoPtr<GroupProperty> group{ p })
            for (const auto &child : *group)
                visit(child);
    };
    for (const auto &p : Sample::SampleSchema::allSchemas(stylesheets))
        visit(p);
    std::vector<Property::Ptr> result;
    for (const char *kind : { "Integer", "String", "Selector", "Stylesheet", "ExtendedSelector",
             "ActivatableGroup", "List", "Bool", "CustomColor", "Brush", "PenStyle", "LineHeadStyle",
             "Font", "FontSize", "UnitValue", "UnitValueSelector" }) {
        auto found = byKind.find(QString::fromLatin1(kind));
        if (found != byKind.end())
            result.push_back(found->second);
    }
    return result;
}

QWidget *themePage(PropertyEditorFactory *factory, const std::vector<Property::Ptr> &kinds)
{
    auto *area = new QScrollArea;
    area->setWidgetResizable(true);
    area->setFrameShape(QFrame::NoFrame);
    auto *grid = new QWidget;
    auto *layout = new QGridLayout(grid);
    layout->setHorizontalSpacing(int(Device::scale(12)));
    const QStringList heads = { QObject::tr("Kind"), QObject::tr("Defined"),
        QObject::tr("Undefined"), QObject::tr("Defined, no frame"),
        QObject::tr("Undefined, no frame") };
    for (int c = 0; c < heads.size(); ++c) {
        auto *head = new QLabel(QStringLiteral("<b>%1</b>").arg(heads.at(c)));
        layout->addWidget(head, 0, c);
    }
    int row = 1;
    for (const Property::Ptr &kind : kinds) {
        layout->addWidget(new QLabel(QString::fromLatin1(kind->kindName())), row, 0, Qt::AlignTop);
        for (int c = 0; c < 4; ++c) {
            factory->setWithEditorFrame(c < 2);
            Property::Ptr p = kind->clone();
            p->setUniqueName(QStringLiteral("%1-%2").arg(p->uniqueName()).arg(c));
            if (c % 2 == 1) {
                p->setUndefinable(true);
                p->setUndefined(true);
            }
            QWidget *editor = factory->createEditor(p, grid, QString());
            if (!editor)
                editor = new QLabel(QObject::tr("(no editor in this theme)"), grid);
            // Cells of one width, and a several-line text kept to a few lines.
            editor->setMaximumWidth(int(Device::scale(210)));
            if (editor->findChild<QTextEdit *>())
                editor->setMaximumHeight(int(Device::scale(60)));
            layout->addWidget(editor, row, c + 1, Qt::AlignTop);
        }
        ++row;
    }
    layout->setRowStretch(row, 1);
    layout->setColumnStretch(5, 1);
    area->setWidget(grid);
    return area;
}

QWidget *makeEditorsPage()
{
    auto *page = new QWidget;
    auto *layout = new QVBoxLayout(page);
    TAutoPtr<Environment> env(new Environment);
    const TAutoPtr<StylesheetManager const> stylesheets(Sample::SampleSchema::makeStylesheets());
    const std::vector<Property::Ptr> kinds = oneOfEachKind(stylesheets);

    auto *tabs = new QTabWidget;
    auto *log = new QLabel(QObject::tr("Edit a value: the change is told here."));
    log->setTextInteractionFlags(Qt::TextSelectableByMouse);
    const QStringList names = { QObject::tr("Tree"), QObject::tr("Form"), QObject::tr("Compact"),
        QObject::tr("Combo") };
    for (int theme = 0; theme < names.size(); ++theme) {
        auto *factory = new PropertyEditorFactory(tabs);
        factory->setWidgetsTheme(PropertyEditorFactory::WidgetsTheme(theme));
        factory->setBrushProvider(TAutoPtr<BrushProviderQt const>(env->brushProvider()));
        factory->setFontProvider(TAutoPtr<FontProviderQt const>(env->fontProvider()));
        factory->setPenStyleProvider(TAutoPtr<PenStyleProviderQt const>(env->penStyleProvider()));
        factory->setLineHeadStyleProvider(
            TAutoPtr<LineHeadStyleProviderQt const>(env->lineHeadStyleProvider()));
        factory->setStylesheetManager(stylesheets);
        factory->setTranslator(Translator::defaultTranslator());
        QObject::connect(factory, &PropertyEditorFactory::propertyChanged, log,
            [log](Property::Ptr p) {
                log->setText(QObject::tr("propertyChanged: %1 (%2) — %3")
                                 .arg(p->visibleName(), QString::fromLatin1(p->kindName()),
                                     p->toString()));
            });
        tabs->addTab(themePage(factory, kinds), names.at(theme));
    }
    tabs->setCurrentIndex(PropertyEditorFactory::WidgetsThemeForm);
    layout->addWidget(tabs, 1);
    layout->addWidget(log);
    return page;
}

} // namespace

TAVO_GALLERY_PAGE(20, "Editors", makeEditorsPage)
