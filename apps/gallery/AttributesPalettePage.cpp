// Gallery page "Attributes palette": the attributes of the objects selected in the list,
// merged, in a palette of two tabs. Where the selected objects differ, or one of them lacks
// the attribute, the rows are undefined. An edit goes to every selected object.
#include "GalleryPage.h"

#include "attributes/AttributesTreeWidget.h"
#include "browser/TreePropertyBrowser.h"
#include "core/Environment.h"
#include "core/UnitValueProperty.h"
#include "propertybrowser/QtBrowserItem.h"
#include "propertybrowser/QtProperty.h"
#include "sample/SampleDocument.h"
#include "sample/SamplePalette.h"
#include "sample/SampleSchema.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QVBoxLayout>

using namespace TavoLib;

namespace {

const AttributeKey kLine(QStringLiteral("Line"));

class AttributesPalettePage : public QWidget
{
public:
    AttributesPalettePage()
        : mEnvironment(new Environment), mDocument(Sample::SampleDocument::makeDefault())
    {
        mEnvironment->setStylesheetManager(mDocument->stylesheets());
        Sample::SampleSchema::registerDefaultAttributes(*mEnvironment);
        // The rule is drawn thicker than the frame's border, so their line widths differ.
        if (mDocument->objects().size() > 1) {
            const Sample::SampleObject::Ptr rule = mDocument->objects()[1];
            const auto line = rule->attributes().find(kLine);
            if (line != rule->attributes().end()) {
                PropertyDictionary values;
                line->second->fillProperties(values);
                if (UnitValueProperty::Ptr width{ values.property(QStringLiteral("width")) })
                    width->setValue(UnitValue(1.5, CUnit::PT));
                TAutoPtr<Attribute> thicker(line->second->clone());
                thicker->applyProperties(values);
                rule->setAttribute(thicker);
            }
        }

        auto *layout = new QHBoxLayout(this);
        auto *left = new QVBoxLayout;
        left->addWidget(new QLabel(tr("Selection")));
        mObjects = new QListWidget;
        mObjects->setSelectionMode(QAbstractItemView::ExtendedSelection);
        mObjects->setMaximumWidth(260);
        for (const auto &object : mDocument->objects())
            mObjects->addItem(QStringLiteral("%1 (%2)").arg(object->name(), object->typeName()));
        left->addWidget(mObjects, 1);
        auto *hint = new QLabel(tr("Select several objects: values they do not share are empty."));
        hint->setWordWrap(true);
        hint->setMaximumWidth(260);
        left->addWidget(hint);
        layout->addLayout(left);

        mPalette = new Sample::SamplePalette([this] { return selected(); });
        mPalette->setEnvironment(mEnvironment);
        layout->addWidget(mPalette, 1);
        connect(mObjects, &QListWidget::itemSelectionChanged, mPalette, [this] { mPalette->selectionChanged(); });
        mObjects->item(0)->setSelected(true);
        if (mObjects->count() > 1)
            mObjects->item(1)->setSelected(true);
    }

    // Opens the editor of the first row that shows a value, for the screenshot.
    void openEditor()
    {
        auto *browser = qobject_cast<TreePropertyBrowser *>(mPalette->currentWidget());
        if (!browser)
            return;
        std::function<QtBrowserItem *(const QList<QtBrowserItem *> &)> firstValue
            = [&](const QList<QtBrowserItem *> &items) -> QtBrowserItem * {
            for (QtBrowserItem *item : items) {
                if (item->property()->hasValue() && !item->property()->valueText().isEmpty())
                    return item;
                if (QtBrowserItem *child = firstValue(item->children()))
                    return child;
            }
            return nullptr;
        };
        // The tree holds the focus, so the editor keeps it while the window settles.
        if (auto *tree = browser->findChild<QWidget *>())
            tree->setFocus();
        if (QtBrowserItem *item = firstValue(browser->topLevelItems()))
            browser->editItem(item);
    }

private:
    std::vector<Sample::SampleObject::Ptr> selected() const
    {
        std::vector<Sample::SampleObject::Ptr> result;
        for (int row = 0; row < mObjects->count(); ++row)
            if (mObjects->item(row)->isSelected() && row < int(mDocument->objects().size()))
                result.push_back(mDocument->objects()[size_t(row)]);
        return result;
    }

    TAutoPtr<Environment> mEnvironment;
    Sample::SampleDocument::Ptr mDocument;
    QListWidget *mObjects = nullptr;
    Sample::SamplePalette *mPalette = nullptr;
};

QWidget *makeAttributesPalettePage()
{
    return new AttributesPalettePage;
}

void prepareAttributesPalette(QWidget *page)
{
    static_cast<AttributesPalettePage *>(page)->openEditor();
}

} // namespace

TAVO_GALLERY_PAGE_EX(16, "Attributes palette", makeAttributesPalettePage, prepareAttributesPalette, nullptr)
