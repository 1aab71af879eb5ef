// Gallery page "Attributes dialog": the attributes of two sample objects (a text frame and
// a picture whose fills differ) in the two forms of the dialog, tabs and a page tree, with
// the preview on. Values the objects share show; the brush they differ in is empty.
#include "GalleryPage.h"

#include "attributes/AttributesDialog.h"
#include "attributes/AttributesWidget.h"
#include "core/BrushProperty.h"
#include "core/Environment.h"
#include "sample/SampleDocument.h"
#include "sample/SampleSchema.h"
#include "sample/SelectionPage.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

using namespace TavoLib;

namespace {

using Sample::SelectionPage;

// The host's dialog, shown in place on the page instead of run.
class SampleDialog : public AttributesDialog
{
public:
    SampleDialog(Type type, QWidget *parent) : AttributesDialog(type, parent, Qt::WindowFlags(), true)
    {
        // A dialog is always a window of its own; on the page it is a child like any other.
        setWindowFlags(Qt::Widget);
    }
    void showInPlace()
    {
        prepareToRun();
        mPreview->setChecked(true);
        show();
    }

protected:
    void loadWidgetValues(QWidget *widget) override
    {
        if (auto *page = dynamic_cast<AttributesWidgetCommon *>(widget))
            page->loadValues();
    }
    void saveWidgetValues(QWidget *widget) override
    {
        if (auto *page = dynamic_cast<AttributesWidgetCommon *>(widget))
            page->saveValues();
    }
};

class AttributesDialogPage : public QWidget
{
public:
    AttributesDialogPage()
        : mEnvironment(new Environment), mDocument(Sample::SampleDocument::makeDefault())
    {
        mEnvironment->setStylesheetManager(mDocument->stylesheets());
        Sample::SampleSchema::registerDefaultAttributes(*mEnvironment);
        std::vector<Sample::SampleObject::Ptr> selection;
        for (const auto &object : mDocument->objects())
            if (object->typeName() != QLatin1String("Line"))
                selection.push_back(object);
        // The picture is filled with another brush than the frame.
        const AttributeKey fill(QStringLiteral("Fill"));
        if (selection.size() > 1 && selection[1]->attributes().count(fill)) {
            PropertyDictionary values;
            selection[1]->attributes().at(fill)->fillProperties(values);
            if (TAutoPtr<BrushProperty> brush{ values.property(QStringLiteral("brush")) })
                brush->setBrush(3);
            TAutoPtr<Attribute> other(selection[1]->attributes().at(fill)->clone());
            other->applyProperties(values);
            selection[1]->setAttribute(other);
        }

        auto *layout = new QVBoxLayout(this);
        const std::pair<AttributesDialog::Type, QString> forms[]
            = { { AttributesDialog::Tabs, tr("Tabs") }, { AttributesDialog::PageTree, tr("Page tree") } };
        for (const auto &form : forms) {
            auto *column = new QHBoxLayout;
            auto *title = new QLabel(form.second);
            title->setAlignment(Qt::AlignTop | Qt::AlignLeft);
            title->setMinimumWidth(80);
            column->addWidget(title);
            auto *dialog = new SampleDialog(form.first, this);
            const std::pair<QString, AttributeKey> pages[] = { { tr("Fill"), fill },
                { tr("Line"), AttributeKey(QStringLiteral("Line")) },
                { tr("Character"), AttributeKey(QStringLiteral("Character")) } };
            for (const auto &page : pages)
                dialog->addWidget(dialog->addTab(page.first), new SelectionPage(selection, { page.second }, mEnvironment));
            column->addWidget(dialog, 0, Qt::AlignTop);
            column->addStretch(1);
            layout->addLayout(column);
            dialog->showInPlace();
        }
        layout->addStretch(1);
    }

private:
    TAutoPtr<Environment> mEnvironment;
    Sample::SampleDocument::Ptr mDocument;
};

QWidget *makeAttributesDialogPage()
{
    return new AttributesDialogPage;
}

} // namespace

TAVO_GALLERY_PAGE(17, "Attributes dialog", makeAttributesDialogPage)
