// Gallery page "Editors": one property of every kind of the sample schema, each made into an
// editor by the real factory over the reference providers. A tab per theme, the tree's without
// the editor frame as the palette uses it, and one of form editors without the frame as a
// list's cells show them; columns for a defined and an undefined value. The line at the bottom
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

using namespace TavoLib;

namespace {

// One theme's editors: a row per kind, a column for a defined and an undefined value.
QWidget *themePage(PropertyEditorFactory *factory, const std::vector<Property::Ptr> &kinds)
{
    auto *area = new QScrollArea;
    area->setWidgetResizable(true);
    area->setFrameShape(QFrame::NoFrame);
    auto *grid = new QWidget;
    auto *layout = new QGridLayout(grid);
    layout->setHorizontalSpacing(int(Device::scale(12)));
    const QStringList heads
        = { QObject::tr("Kind"), QObject::tr("Defined"), QObject::tr("Undefined") };
    for (int c = 0; c < heads.size(); ++c) {
        auto *head = new QLabel(QStringLiteral("<b>%1</b>").arg(heads.at(c)));
        layout->addWidget(head, 0, c);
    }
    int row = 1;
    for (const Property::Ptr &kind : kinds) {
        auto *label = new QLabel(QString::fromLatin1(kind->kindName()));
        layout->addWidget(label, row, 0, Qt::AlignTop);
        for (int c = 0; c < 2; ++c) {
            Property::Ptr p = kind->clone();
            p->setUniqueName(QStringLiteral("%1-%2").arg(p->uniqueName()).arg(c));
            if (c == 1) {
                p->setUndefinable(true);
                p->setUndefined(true);
            }
            QWidget *editor = factory->createEditor(p, grid, QString());
            if (!editor)
                editor = new QLabel(QObject::tr("(no editor in this theme)"), grid);
            else if (c == 0)
                label->setBuddy(editor);
            // Cells of one width, and a several-line text kept to a few lines.
            editor->setMaximumWidth(int(Device::scale(400)));
            if (editor->findChild<QTextEdit *>())
                editor->setMaximumHeight(int(Device::scale(60)));
            layout->addWidget(editor, row, c + 1, Qt::AlignTop);
        }
        ++row;
    }
    layout->setRowStretch(row, 1);
    layout->setColumnStretch(3, 1);
    area->setWidget(grid);
    return area;
}

QWidget *makeEditorsPage()
{
    auto *page = new QWidget;
    auto *layout = new QVBoxLayout(page);
    TAutoPtr<Environment> env(new Environment);
    const TAutoPtr<StylesheetManager const> stylesheets(Sample::SampleSchema::makeStylesheets());
    const std::vector<Property::Ptr> kinds = Sample::SampleSchema::oneOfEachKind(stylesheets);

    auto *tabs = new QTabWidget;
    auto *log = new QLabel(QObject::tr("Edit a value: the change is told here."));
    log->setTextInteractionFlags(Qt::TextSelectableByMouse);
    // Each theme as it is used: the tree's cells and a list's cells without the editor frame,
    // forms with it.
    const QStringList names = { QObject::tr("Tree"), QObject::tr("Form"), QObject::tr("Compact"),
        QObject::tr("Combo"), QObject::tr("Cells (form, no frame)") };
    for (int tab = 0; tab < names.size(); ++tab) {
        const int theme = tab == 4 ? int(PropertyEditorFactory::WidgetsThemeForm) : tab;
        auto *factory = new PropertyEditorFactory(tabs);
        factory->setWidgetsTheme(PropertyEditorFactory::WidgetsTheme(theme));
        factory->setWithEditorFrame(tab != 0 && tab != 4);
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
        tabs->addTab(themePage(factory, kinds), names.at(tab));
    }
    tabs->setCurrentIndex(PropertyEditorFactory::WidgetsThemeForm);
    layout->addWidget(tabs, 1);
    layout->addWidget(log);
    return page;
}

} // namespace

TAVO_GALLERY_PAGE(20, "Editors", makeEditorsPage)
